#include "ShelfItem.h"

#include "ShownText.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

namespace perchly {

namespace {

constexpr QLatin1StringView idField("id");
constexpr QLatin1StringView nameField("name");
constexpr QLatin1StringView widgetNameField("widgetName");
constexpr QLatin1StringView pathField("path");
constexpr QLatin1StringView shortcutNameField("shortcutName");
constexpr QLatin1StringView visibleField("visible");
constexpr QLatin1StringView favoriteField("favorite");

QJsonObject encoded(const ShelfItem &item) {
    QJsonObject object{{idField, item.id},
                       {nameField, item.name},
                       {visibleField, item.visible},
                       {favoriteField, item.favorite}};
    const auto insertPresent = [&object](QLatin1StringView field,
                                         const std::optional<QString> &value) {
        if (value) {
            object.insert(field, *value);
        }
    };
    insertPresent(widgetNameField, item.widgetName);
    insertPresent(pathField, item.path);
    insertPresent(shortcutNameField, item.shortcutName);
    return object;
}

/// Reads an optional string; false when the field holds something else.
bool readOptional(const QJsonObject &object, QLatin1StringView field,
                  std::optional<QString> &result) {
    const QJsonValue value = object.value(field);
    if (value.isUndefined() || value.isNull()) {
        return true;
    }
    result = value.toString();
    return value.isString();
}

std::optional<ShelfItem> decoded(const QJsonValue &value) {
    const QJsonObject object = value.toObject();
    const QJsonValue id = object.value(idField);
    const QJsonValue name = object.value(nameField);
    const QJsonValue visible = object.value(visibleField);
    const QJsonValue favorite = object.value(favoriteField);
    if (!id.isString() || !name.isString() || !visible.isBool() || !favorite.isBool()) {
        return std::nullopt;
    }
    ShelfItem item{.id = id.toString(),
                   .name = name.toString(),
                   .visible = visible.toBool(),
                   .favorite = favorite.toBool()};
    if (!readOptional(object, widgetNameField, item.widgetName) ||
        !readOptional(object, pathField, item.path) ||
        !readOptional(object, shortcutNameField, item.shortcutName)) {
        return std::nullopt;
    }
    return item;
}

} // namespace

ShelfItem ShelfItem::forWidget(Widget widget) {
    const QString title = perchly::widgetTitle(widget);
    return {.id = QLatin1StringView("widget:") + title, .name = title, .widgetName = title};
}

ShelfItem ShelfItem::forShortcut(const QString &name) {
    return {.id = QLatin1StringView("shortcut:") + name, .name = name, .shortcutName = name};
}

ShelfItem ShelfItem::forApplication(const QString &path, const QString &name) {
    return {.id = QDir::cleanPath(path), .name = name, .path = path};
}

QString ShelfItem::shownName() const {
    return inOneLine(name);
}

bool ShelfItem::removable() const {
    return widgetTitle().isEmpty() && (path || shortcutName);
}

QString ShelfItem::kind() const {
    if (!widgetTitle().isEmpty()) {
        return QStringLiteral("widget");
    }
    if (shortcutName) {
        return QStringLiteral("shortcut");
    }
    return path ? QStringLiteral("application") : QString();
}

QString ShelfItem::widgetTitle() const {
    return widgetName && widgetFromTitle(*widgetName) ? *widgetName : QString();
}

QJsonArray shelfItemsToJson(const QList<ShelfItem> &items) {
    QJsonArray array;
    for (const ShelfItem &item : items) {
        array.append(encoded(item));
    }
    return array;
}

std::optional<QList<ShelfItem>> shelfItemsFromJson(const QJsonValue &value) {
    if (!value.isArray()) {
        return std::nullopt;
    }
    QList<ShelfItem> items;
    const QJsonArray array = value.toArray();
    items.reserve(array.size());
    for (const QJsonValue &element : array) {
        const auto item = decoded(element);
        if (!item) {
            return std::nullopt;
        }
        items.append(*item);
    }
    return items;
}

QByteArray encodeShelfItems(const QList<ShelfItem> &items) {
    return QJsonDocument(shelfItemsToJson(items)).toJson(QJsonDocument::Compact);
}

std::optional<QList<ShelfItem>> decodeShelfItems(const QByteArray &document) {
    const QJsonDocument parsed = QJsonDocument::fromJson(document);
    return parsed.isArray() ? shelfItemsFromJson(parsed.array()) : std::nullopt;
}

} // namespace perchly
