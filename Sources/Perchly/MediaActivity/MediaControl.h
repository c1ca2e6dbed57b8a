#pragma once

#include "Clock.h"
#include "MediaActivity.h"
#include "MediaPlaybackCommand.h"

#include <functional>
#include <optional>

namespace perchly {

class MediaActivityReader;
class ShelfModel;

/// Carries out one playback command at a time. A player of the media session is read afresh, sent
/// the command, and read again until it has visibly obeyed, since browsers tend to accept a command
/// and do nothing. Other players are told directly. Each failure leaves one sentence in the model.
/// Main thread only; destroying it drops what is under way.
class MediaControl {
public:
    using Apply = std::function<void(const std::optional<MediaActivity> &activity)>;

    /// `apply` takes what verification has read into the model. All must outlive the control.
    MediaControl(ShelfModel &model, MediaActivityReader &reader, Clock &clock, Apply apply);

    /// Starts the command with this word, unless one is under way, and returns at once.
    void start(const QString &word);

private:
    /// The command that is under way.
    struct Command {
        QString word;
        MediaPlaybackCommand kind = MediaPlaybackCommand::Play;
        QString source; ///< as shown when the person pressed, like the title
        QString title;
        std::optional<double> target;
        int attempts = 0;
    };

    void tellPlayer(const QString &word);
    void onFreshReading(const MediaReading &reading);
    void onSent(std::optional<bool> accepted);
    void waitAndVerify();
    void onVerification(const MediaReading &reading);
    void endUnverified();
    void end(const QString &error = {});
    [[nodiscard]] bool isDone(const MediaActivity &activity) const;

    ShelfModel &m_model;
    MediaActivityReader &m_reader;
    Clock &m_clock;
    Apply m_apply;
    Command m_command;
    Task m_step;
};

} // namespace perchly
