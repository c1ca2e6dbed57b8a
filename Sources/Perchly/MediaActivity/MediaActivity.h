#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace perchly {

class ShelfModel;

/// One item of the desktop's media session. Times are in seconds and absent when unknown.
struct MediaActivity {
    QString title;
    QString artist; ///< empty when the player gives none
    QString source; ///< the player's name for users
    bool playing = false;
    std::optional<double> elapsedTime;
    std::optional<double> duration;

    friend bool operator==(const MediaActivity &, const MediaActivity &) = default;

    /// The player is a web browser, going by its name.
    [[nodiscard]] bool isBrowser() const;
};

/// A look at the session: it failed, or it found something, or it found that nothing is there.
struct MediaReading {
    bool succeeded = false;
    std::optional<MediaActivity> activity;
};

/// Reads a JSON object with these fields' names as keys, or "null" for nothing. Anything else, and
/// an object without its four required keys or with a value of another type, is a failed reading.
/// Texts become fit to show.
[[nodiscard]] MediaReading decodeMediaReading(const QByteArray &json);

/// A text from a player on one line, at most 1024 characters long, without characters that are
/// invisible or change the direction of the text around them.
[[nodiscard]] QString textToShow(const QString &text);

/// Takes one reading of the session into the model.
void applyMedia(ShelfModel &model, const std::optional<MediaActivity> &activity);

} // namespace perchly
