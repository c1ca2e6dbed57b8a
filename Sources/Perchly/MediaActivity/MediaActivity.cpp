#include "MediaActivity.h"

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

/// False when the value is neither a number nor left out.
bool readSeconds(const QJsonValue &value, std::optional<double> &seconds) {
    if (value.isDouble()) {
        seconds = value.toDouble();
    }
    return value.isDouble() || value.isNull() || value.isUndefined();
}

std::optional<MediaActivity> decodeActivity(const QJsonObject &object) {
    const QJsonValue title = object.value(QLatin1StringView("title"));
    const QJsonValue artist = object.value(QLatin1StringView("artist"));
    const QJsonValue source = object.value(QLatin1StringView("source"));
    const QJsonValue playing = object.value(QLatin1StringView("playing"));
    MediaActivity activity{.title = title.toString(),
                           .artist = artist.toString(),
                           .source = source.toString(),
                           .playing = playing.toBool(),
                           .elapsedTime = {},
                           .duration = {}};
    const bool complete =
        title.isString() && artist.isString() && source.isString() && playing.isBool() &&
        readSeconds(object.value(QLatin1StringView("elapsedTime")), activity.elapsedTime) &&
        readSeconds(object.value(QLatin1StringView("duration")), activity.duration);
    return complete ? std::optional(std::move(activity)) : std::nullopt;
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

} // namespace perchly
