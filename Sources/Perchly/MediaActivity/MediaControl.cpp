#include "MediaControl.h"

#include "MediaActivityReader.h"
#include "ShelfModel.h"

#include <cmath>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr int maxAttempts = 4;
constexpr double seekTolerance = 4;

bool isSkip(MediaPlaybackCommand command) {
    return command == MediaPlaybackCommand::Next || command == MediaPlaybackCommand::Previous;
}

} // namespace

void MediaControl::start(const QString &word) {
    if (m_model.controlling()) {
        m_waiting.append(word);
        return;
    }
    m_model.setControlling(true);
    m_model.setControlError({});
    begin(word, false);
}

void MediaControl::begin(const QString &word, bool anyTrack) {
    const Media media = m_model.media();
    if (!media.isSystem) {
        tellPlayer(word);
        return;
    }
    const auto kind = resolvePlaybackCommand(word, media.playing);
    if (!kind) {
        end();
        return;
    }
    m_command = {.word = word,
                 .kind = *kind,
                 .source = media.source,
                 .title = anyTrack || isSkip(*kind) ? QString() : media.title,
                 .target = {}};
    m_step = m_reader.read([this](const MediaReading &reading) { onFreshReading(reading); });
}

void MediaControl::tellPlayer(const QString &word) {
    m_step = m_reader.tell(m_model.media().playerID, word, [this](const auto &state) {
        if (!state) {
            end(tr("Nothing is playing. Start a player and try again."));
            return;
        }
        if (state->trimmed() == "refused") {
            end(tr("%1 refused this command.").arg(m_model.mediaSource()));
            return;
        }
        Media media = m_model.media();
        media.playing = state->trimmed().toLower() == "playing";
        m_model.setMedia(media);
        end();
    });
}

void MediaControl::onFreshReading(const MediaReading &reading) {
    const auto &activity = reading.activity;
    if (!activity || !isSameItem(*activity)) {
        end(tr("The media session changed. Wait for the current player to appear, then "
               "try again."));
        return;
    }
    m_command.title = activity->title;
    m_command.kind =
        resolvePlaybackCommand(m_command.word, activity->playing).value_or(m_command.kind);
    m_command.target = seekTarget(m_command.kind, *activity);
    if (isSeek(m_command.kind) && !m_command.target) {
        end(tr("This player does not expose a seekable timeline."));
        return;
    }
    m_step = m_reader.send(m_command.kind, m_command.target, [this](bool accepted) {
        if (accepted && isSkip(m_command.kind)) {
            end();
        } else if (accepted) {
            waitAndVerify();
        } else {
            end(tr("%1 could not receive this playback command.").arg(m_command.source));
        }
    });
}

void MediaControl::waitAndVerify() {
    m_step = m_clock.after(300ms, [this] {
        m_step = m_reader.read([this](const MediaReading &reading) { onVerification(reading); });
    });
}

void MediaControl::onVerification(const MediaReading &reading) {
    if (reading.succeeded) {
        applyMedia(m_model, reading.activity);
        if (reading.activity && isDone(*reading.activity)) {
            end();
            return;
        }
    }
    ++m_command.attempts;
    if (m_command.attempts == maxAttempts) {
        end(tr("%1 did not apply this media command. The tab may be closed, buffering, or unable "
               "to "
               "accept remote controls. Open the player and try again.")
                .arg(m_command.source));
    } else {
        waitAndVerify();
    }
}

bool MediaControl::isSameItem(const MediaActivity &activity) const {
    return activity.source == m_command.source &&
           (m_command.title.isNull() || activity.title == m_command.title);
}

bool MediaControl::isDone(const MediaActivity &activity) const {
    switch (m_command.kind) {
    case MediaPlaybackCommand::Play:
        return isSameItem(activity) && activity.playing;
    case MediaPlaybackCommand::Pause:
        return isSameItem(activity) && !activity.playing;
    case MediaPlaybackCommand::Rewind:
    case MediaPlaybackCommand::Forward:
        return isSameItem(activity) && activity.elapsedTime && m_command.target &&
               std::abs(*activity.elapsedTime - *m_command.target) < seekTolerance;
    case MediaPlaybackCommand::Next:
    case MediaPlaybackCommand::Previous:
        break;
    }
    return false;
}

void MediaControl::end(const QString &error) {
    if (error.isNull() && !m_waiting.isEmpty()) {
        begin(m_waiting.takeFirst(), true);
        return;
    }
    m_waiting.clear();
    m_model.setControlling(false);
    if (!error.isNull()) {
        m_model.setControlError(error);
    }
}

} // namespace perchly
