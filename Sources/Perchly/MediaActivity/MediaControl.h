#pragma once

#include "Clock.h"
#include "MediaActivity.h"
#include "MediaPlaybackCommand.h"

#include <QCoreApplication>
#include <QStringList>

#include <optional>

namespace perchly {

class MediaActivityReader;
class ShelfModel;

/// Carries out playback commands, one after the other. For a player of the media session it reads
/// the session, sends the command, and, unless the command skips a track, reads again until it has
/// taken effect, since browsers may accept a command and do nothing. It sends a command to other
/// players without a check. A failure leaves one sentence in the model and drops the commands that
/// wait. Main thread only; the destructor cancels all commands.
class MediaControl {
    Q_DECLARE_TR_FUNCTIONS(MediaControl)
public:
    /// The arguments must outlive the control.
    MediaControl(ShelfModel &model, MediaActivityReader &reader, Clock &clock)
        : m_model(model)
        , m_reader(reader)
        , m_clock(clock) {}

    /// Starts the command with this word, once all earlier ones have ended, and returns at once.
    void start(const QString &word);

private:
    struct Command {
        QString word;
        MediaPlaybackCommand kind = MediaPlaybackCommand::Play;
        QString source; ///< as shown at the start
        /// As shown at the press; null if the command is for any track.
        QString title;
        std::optional<double> target;
        int attempts = 0;
    };

    void begin(const QString &word, bool anyTrack);
    void tellPlayer(const QString &word);
    void onFreshReading(const MediaReading &reading);
    void waitAndVerify();
    void onVerification(const MediaReading &reading);
    void end(const QString &error = {});
    [[nodiscard]] bool isSameItem(const MediaActivity &activity) const;
    [[nodiscard]] bool isDone(const MediaActivity &activity) const;

    ShelfModel &m_model;
    MediaActivityReader &m_reader;
    Clock &m_clock;
    Command m_command;
    QStringList m_waiting; ///< words of the commands to start next
    Task m_step;
};

} // namespace perchly
