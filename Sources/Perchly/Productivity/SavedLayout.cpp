#include "SavedLayout.h"

#include "StoredRecords.h"

#include <QJsonObject>

namespace perchly {

namespace {

constexpr QLatin1StringView idField("id");
constexpr QLatin1StringView nameField("name");
constexpr QLatin1StringView itemsField("items");
constexpr QLatin1StringView favoritesOnlyField("favoritesOnly");
constexpr QLatin1StringView leftField("left");
constexpr QLatin1StringView rightField("right");

QJsonObject encoded(const SavedLayout &layout) {
    return {{idField, identifierText(layout.id)},
            {nameField, layout.name},
            {itemsField, shelfItemsToJson(layout.items)},
            {favoritesOnlyField, layout.favoritesOnly},
            {leftField, layout.left},
            {rightField, layout.right}};
}

std::optional<SavedLayout> decoded(const QJsonValue &value) {
    const QJsonObject object = value.toObject();
    const auto id = identifierFrom(object.value(idField));
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
    return encodeRecords(layouts, encoded);
}

std::optional<QList<SavedLayout>> decodeLayouts(const QByteArray &document) {
    return decodeRecords(document, decoded);
}

} // namespace perchly
