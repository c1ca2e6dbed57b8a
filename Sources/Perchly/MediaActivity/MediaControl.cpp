#include "MediaControl.h"

#include "MediaActivityReader.h"
#include "ShelfModel.h"

#include <cmath>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr int mostAttempts = 4;
constexpr double seekTolerance = 4;

QString sessionChanged() {
    return QStringLiteral("The media session changed. Wait for the current player to appear, then "
                          "try again.");
}

QString notSeekable() {
    return QStringLiteral("This player does not expose a seekable timeline.");
}

QString refused(const QString &source) {
    return source + QStringLiteral(" could not receive this playback command.");
}

QString ignored(const QString &source) {
    return source +
           QStringLiteral(" did not apply this media command. The tab may be closed, "
                          "buffering, or unable to accept remote controls. Open the player "
                          "and try again.");
}

QString notAllowed() {
    return QStringLiteral(
        "Allow Perchly in System Settings → Privacy & Security → Automation, then "
        "try again.");
}

bool cannotBeChecked(MediaPlaybackCommand command) {
    return command == MediaPlaybackCommand::Next || command == MediaPlaybackCommand::Previous;
}

} // namespace

MediaControl::MediaControl(ShelfModel &model, MediaActivityReader &reader, Clock &clock,
                           Apply apply)
    : m_model(model)
    , m_reader(reader)
    , m_clock(clock)
    , m_apply(std::move(apply)) {}

void MediaControl::start(const QString &word) {
    if (m_model.controlling()) {
        return;
    }
    m_model.setControlling(true);
    m_model.setControlError({});
    m_model.setMusicActive(true);
    if (!m_model.systemMedia()) {
        tellPlayer(word);
        return;
    }
    const auto kind = resolvePlaybackCommand(word, m_model.playing());
    if (!kind) {
        m_model.setControlling(false);
        return;
    }
    m_command = {.word = word,
                 .kind = *kind,
                 .source = m_model.mediaSource(),
                 .title = m_model.musicTitle(),
                 .target = {}};
    m_step = m_reader.read([this](const MediaReading &reading) { onFreshReading(reading); });
}

void MediaControl::tellPlayer(const QString &word) {
    m_step = m_reader.tell(m_model.playerID(), word, [this](const auto &output) {
        end(output ? QString() : notAllowed());
        if (output) {
            m_model.setPlaying(QString::fromUtf8(*output).trimmed().toLower() ==
                               QLatin1StringView("playing"));
        }
    });
}

void MediaControl::onFreshReading(const MediaReading &reading) {
    const auto &activity = reading.activity;
    if (!reading.succeeded || !activity || activity->source != m_command.source ||
        activity->title != m_command.title) {
        end(sessionChanged());
        return;
    }
    m_command.kind =
        resolvePlaybackCommand(m_command.word, activity->playing).value_or(m_command.kind);
    m_command.target = seekTarget(m_command.kind, *activity);
    if (isSeek(m_command.kind) && !m_command.target) {
        end(notSeekable());
        return;
    }
    m_step = m_reader.send(m_command.kind, m_command.target,
                           [this](std::optional<bool> accepted) { onSent(accepted); });
}

void MediaControl::onSent(std::optional<bool> accepted) {
    if (accepted.value_or(false)) {
        waitAndVerify();
    } else {
        end(refused(m_command.source));
    }
}

void MediaControl::waitAndVerify() {
    m_step = m_clock.after(300ms, [this] {
        m_step = m_reader.read([this](const MediaReading &reading) { onVerification(reading); });
    });
}

void MediaControl::onVerification(const MediaReading &reading) {
    if (reading.succeeded) {
        m_apply(reading.activity);
        if (reading.activity && isDone(*reading.activity)) {
            end();
            return;
        }
        if (cannotBeChecked(m_command.kind)) {
            endUnverified();
            return;
        }
    }
    ++m_command.attempts;
    if (m_command.attempts == mostAttempts) {
        endUnverified();
    } else {
        waitAndVerify();
    }
}

bool MediaControl::isDone(const MediaActivity &activity) const {
    if (activity.source != m_command.source || activity.title != m_command.title) {
        return false;
    }
    switch (m_command.kind) {
    case MediaPlaybackCommand::Play:
        return activity.playing;
    case MediaPlaybackCommand::Pause:
        return !activity.playing;
    case MediaPlaybackCommand::Rewind:
    case MediaPlaybackCommand::Forward:
        return activity.elapsedTime && m_command.target &&
               std::abs(*activity.elapsedTime - *m_command.target) < seekTolerance;
    case MediaPlaybackCommand::Next:
    case MediaPlaybackCommand::Previous:
        break;
    }
    return false;
}

void MediaControl::endUnverified() {
    end(cannotBeChecked(m_command.kind) ? QString() : ignored(m_command.source));
}

void MediaControl::end(const QString &error) {
    m_model.setControlling(false);
    if (!error.isNull()) {
        m_model.setControlError(error);
    }
}

} // namespace perchly
