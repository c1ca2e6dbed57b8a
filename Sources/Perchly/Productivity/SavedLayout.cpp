#include "SavedLayout.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace perchly {

namespace {

constexpr QLatin1StringView idField("id");
constexpr QLatin1StringView nameField("name");
constexpr QLatin1StringView itemsField("items");
constexpr QLatin1StringView favoritesOnlyField("favoritesOnly");
constexpr QLatin1StringView leftField("left");
constexpr QLatin1StringView rightField("right");

QString identifierText(const QUuid &id) {
    return id.toString(QUuid::WithoutBraces).toUpper();
}

QJsonObject encoded(const SavedLayout &layout) {
    return {{idField, identifierText(layout.id)},
            {nameField, layout.name},
            {itemsField, shelfItemsToJson(layout.items)},
            {favoritesOnlyField, layout.favoritesOnly},
            {leftField, layout.left},
            {rightField, layout.right}};
}

/// Only the plain form with its hyphens, in either case.
std::optional<QUuid> identifier(const QJsonValue &value) {
    const QString text = value.toString();
    const QUuid id(text);
    return identifierText(id) == text.toUpper() ? std::optional(id) : std::nullopt;
}

std::optional<SavedLayout> decoded(const QJsonValue &value) {
    const QJsonObject object = value.toObject();
    const auto id = identifier(object.value(idField));
    const QJsonValue name = object.value(nameField);
    const auto items = shelfItemsFromJson(object.value(itemsField));
    const QJsonValue favoritesOnly = object.value(favoritesOnlyField);
    const QJsonValue left = object.value(leftField);
    const QJsonValue right = object.value(rightField);
    if (!id || !items || !name.isString() || !favoritesOnly.isBool() || !left.isString() ||
        !right.isString()) {
        return std::nullopt;
    }
    return SavedLayout{.id = *id,
                       .name = name.toString(),
                       .items = *items,
                       .favoritesOnly = favoritesOnly.toBool(),
                       .left = left.toString(),
                       .right = right.toString()};
}

} // namespace

QByteArray encodeLayouts(const QList<SavedLayout> &layouts) {
    QJsonArray array;
    for (const SavedLayout &layout : layouts) {
        array.append(encoded(layout));
    }
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::optional<QList<SavedLayout>> decodeLayouts(const QByteArray &document) {
    const QJsonDocument parsed = QJsonDocument::fromJson(document);
    if (!parsed.isArray()) {
        return std::nullopt;
    }
    QList<SavedLayout> layouts;
    const QJsonArray array = parsed.array();
    for (const QJsonValue &value : array) {
        const auto layout = decoded(value);
        if (!layout) {
            return std::nullopt;
        }
        layouts.append(*layout);
    }
    return layouts;
}

} // namespace perchly
