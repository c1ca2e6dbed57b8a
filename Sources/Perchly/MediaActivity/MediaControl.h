#pragma once

#include "Clock.h"
#include "MediaActivity.h"
#include "MediaPlaybackCommand.h"

#include <optional>

namespace perchly {

class MediaActivityReader;
class ShelfModel;

/// Carries out one playback command at a time. For a player of the media session it reads the
/// session, sends the command, and reads again until the command has taken effect, since browsers
/// may accept a command and do nothing. It sends a command to other players without a check. A
/// failure leaves one sentence in the model. Main thread only; the destructor cancels the command.
class MediaControl {
public:
    /// The arguments must outlive the control.
    MediaControl(ShelfModel &model, MediaActivityReader &reader, Clock &clock)
        : m_model(model)
        , m_reader(reader)
        , m_clock(clock) {}

    /// Starts the command with this word, unless another is running, and returns at once.
    void start(const QString &word);

private:
    struct Command {
        QString word;
        MediaPlaybackCommand kind = MediaPlaybackCommand::Play;
        QString source; ///< as shown at the press, like the title
        QString title;
        std::optional<double> target;
        int attempts = 0;
    };

    void tellPlayer(const QString &word);
    void onFreshReading(const MediaReading &reading);
    void waitAndVerify();
    void onVerification(const MediaReading &reading);
    void endUnverified();
    void end(const QString &error = {});
    [[nodiscard]] bool isSameItem(const MediaActivity &activity) const;
    [[nodiscard]] bool isDone(const MediaActivity &activity) const;

    ShelfModel &m_model;
    MediaActivityReader &m_reader;
    Clock &m_clock;
    Command m_command;
    Task m_step;
};

} // namespace perchly
