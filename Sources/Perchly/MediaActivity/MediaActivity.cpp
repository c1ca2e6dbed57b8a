#include "MediaActivity.h"

#include "MediaPlaybackCommand.h"
#include "ShelfModel.h"
#include "ShownText.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>

namespace perchly {

namespace {

constexpr std::array browserNames{
    QLatin1StringView("chrome"), QLatin1StringView("chromium"),   QLatin1StringView("firefox"),
    QLatin1StringView("safari"), QLatin1StringView("edge"),       QLatin1StringView("brave"),
    QLatin1StringView("opera"),  QLatin1StringView("vivaldi"),    QLatin1StringView("arc"),
    QLatin1StringView("orion"),  QLatin1StringView("zen browser")};

std::optional<MediaActivity> decodeActivity(const QJsonObject &object) {
    const QJsonValue title = object.value(QLatin1StringView("title"));
    const QJsonValue artist = object.value(QLatin1StringView("artist"));
    const QJsonValue source = object.value(QLatin1StringView("source"));
    const QJsonValue playing = object.value(QLatin1StringView("playing"));
    const QJsonValue elapsed = object.value(QLatin1StringView("elapsedTime"));
    const QJsonValue duration = object.value(QLatin1StringView("duration"));
    const auto isTime = [](const QJsonValue &value) {
        return value.isDouble() || value.isNull() || value.isUndefined();
    };
    const auto seconds = [](const QJsonValue &value) {
        return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
    };
    if (!title.isString() || !artist.isString() || !source.isString() || !playing.isBool() ||
        !isTime(elapsed) || !isTime(duration)) {
        return std::nullopt;
    }
    return MediaActivity{.title = textToShow(title.toString()),
                         .artist = textToShow(artist.toString()),
                         .source = textToShow(source.toString()),
                         .playing = playing.toBool(),
                         .elapsedTime = seconds(elapsed),
                         .duration = seconds(duration)};
}

} // namespace

bool MediaActivity::isBrowser() const {
    const QString name = source.toLower();
    return std::ranges::any_of(browserNames,
                               [&](QLatin1StringView browser) { return name.contains(browser); });
}

MediaReading decodeMediaReading(const QByteArray &json) {
    if (json.trimmed() == "null") {
        return {.succeeded = true, .activity = {}};
    }
    const QJsonDocument document = QJsonDocument::fromJson(json);
    const auto activity = document.isObject() ? decodeActivity(document.object()) : std::nullopt;
    return {.succeeded = activity.has_value(), .activity = activity};
}

QString textToShow(const QString &text) {
    constexpr qsizetype maxLength = 1024;
    QString shown = text.left(maxLength);
    if (text.size() > maxLength && shown.back().isHighSurrogate()) {
        shown.chop(1);
    }
    return inOneLine(shown).simplified();
}

void applyMedia(ShelfModel &model, const std::optional<MediaActivity> &activity) {
    Media media{.playerID = model.media().playerID};
    if (activity) {
        media.active = true;
        media.playing = activity->playing;
        media.title = activity->title;
        media.artist = activity->artist;
        media.source = activity->source;
        media.isSystem = true;
        media.isBrowser = activity->isBrowser();
        media.canSeek = seekTarget(MediaPlaybackCommand::Rewind, *activity).has_value();
    }
    model.setMedia(media);
}

} // namespace perchly
