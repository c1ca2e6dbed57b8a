#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace perchly {

class ShelfModel;

/// The current track of the desktop's media session. Times are in seconds, absent when unknown.
struct MediaActivity {
    QString title;
    QString artist; ///< empty if the player gives none
    QString source; ///< the player's name for users
    bool playing = false;
    std::optional<double> elapsedTime;
    std::optional<double> duration;

    friend bool operator==(const MediaActivity &, const MediaActivity &) = default;

    /// Whether the player is a web browser, judging by its name.
    [[nodiscard]] bool isBrowser() const;
};

/// The result of reading the session: a failure, a track, or nothing.
struct MediaReading {
    bool succeeded = false;
    std::optional<MediaActivity> activity;
};

/// Reads a JSON object whose keys are these fields' names, or "null" for nothing. Anything else,
/// and an object without its four required keys or with a value of a wrong type, is a failure.
/// Texts are cleaned by textToShow().
[[nodiscard]] MediaReading decodeMediaReading(const QByteArray &json);

/// A player's text in one line, at most 1024 characters, without characters that are invisible or
/// change the direction of the text around them.
[[nodiscard]] QString textToShow(const QString &text);

/// Puts one reading of the session into the model.
void applyMedia(ShelfModel &model, const std::optional<MediaActivity> &activity);

} // namespace perchly
