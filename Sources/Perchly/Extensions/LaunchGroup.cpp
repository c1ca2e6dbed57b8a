#include "LaunchGroup.h"

#include "StoredRecords.h"

#include <QJsonObject>

namespace perchly {

namespace {

constexpr QLatin1StringView groupId("id");
constexpr QLatin1StringView nameField("name");
constexpr QLatin1StringView urlsField("urls");

QJsonValue encodedGroup(const LaunchGroup &group) {
    QJsonArray urls;
    for (const QUrl &url : group.urls) {
        urls.append(url.toString(QUrl::FullyEncoded));
    }
    return QJsonObject{
        {groupId, identifierText(group.id)}, {nameField, group.name}, {urlsField, urls}};
}

std::optional<LaunchGroup> decodedGroup(const QJsonValue &value) {
    const QJsonObject object = value.toObject();
    const auto id = identifierFrom(object.value(groupId));
    const QJsonValue name = object.value(nameField);
    const QJsonValue urls = object.value(urlsField);
    if (!id || !name.isString() || !urls.isArray()) {
        return std::nullopt;
    }
    LaunchGroup group{.id = *id, .name = name.toString(), .urls = {}};
    const QJsonArray array = urls.toArray();
    for (const QJsonValue &element : array) {
        // As it would be stored: some addresses can be written in two ways.
        const QUrl url(QUrl(element.toString()).toString(QUrl::FullyEncoded));
        if (!url.isValid() || url.isRelative()) {
            return std::nullopt;
        }
        group.urls.append(url);
    }
    return group;
}

} // namespace

QByteArray encodeGroups(const QList<LaunchGroup> &groups) {
    return encodeRecords(groups, encodedGroup);
}

std::optional<QList<LaunchGroup>> decodeGroups(const QByteArray &document) {
    return decodeRecords(document, decodedGroup);
}

} // namespace perchly
