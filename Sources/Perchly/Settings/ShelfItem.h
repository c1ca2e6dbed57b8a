#pragma once

#include "Widget.h"

#include <QByteArray>
#include <QJsonArray>
#include <QList>
#include <QObject>
#include <QString>

#include <optional>

class QUrl;

namespace perchly {

/// One entry of the shelf's strip: a widget, an application or a shortcut. Compared field by field;
/// identified in lists by `id`.
struct ShelfItem {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id CONSTANT FINAL)
    Q_PROPERTY(QString name READ shownName CONSTANT FINAL)
    Q_PROPERTY(QString kind READ kind CONSTANT FINAL)
    Q_PROPERTY(QString widgetTitle READ widgetTitle CONSTANT FINAL)
    Q_PROPERTY(QString applicationPath READ applicationPath CONSTANT FINAL)
    Q_PROPERTY(bool visible MEMBER visible CONSTANT FINAL)
    Q_PROPERTY(bool favorite MEMBER favorite CONSTANT FINAL)
    Q_PROPERTY(bool removable READ removable CONSTANT FINAL)
public:
    QString id;
    QString name;
    std::optional<QString> widgetName = std::nullopt;   ///< a widget's title
    std::optional<QString> path = std::nullopt;         ///< an application's desktop entry
    std::optional<QString> shortcutName = std::nullopt; ///< a shortcut, as it is listed
    bool visible = true;
    bool favorite = false;

    [[nodiscard]] static ShelfItem forWidget(Widget widget);
    [[nodiscard]] static ShelfItem forShortcut(const QString &name);
    /// `path` is kept as given; the identifier is its form without dot segments.
    [[nodiscard]] static ShelfItem forApplication(const QString &path, const QString &name);

    /// The name as views show it: in one line, and in its own direction.
    [[nodiscard]] QString shownName() const;
    /// Applications and shortcuts can be removed from the shelf, the rest only hidden.
    [[nodiscard]] bool removable() const;
    /// What to show for the item: "widget" when it names one, else "shortcut", "application" or,
    /// when it is none of them, the empty string.
    [[nodiscard]] QString kind() const;
    /// The widget's title, or empty for what is no widget.
    [[nodiscard]] QString widgetTitle() const;
    /// Empty where there is no path.
    [[nodiscard]] QString applicationPath() const { return path.value_or(QString()); }

    bool operator==(const ShelfItem &) const = default;
};

/// The stored form of a list: one object for each item in order. Absent optional fields are left
/// out.
[[nodiscard]] QJsonArray shelfItemsToJson(const QList<ShelfItem> &items);

/// Nothing when the value is not an array of such objects, or one lacks a required field or has one
/// of another type. Unknown fields are ignored; optional ones may be null.
[[nodiscard]] std::optional<QList<ShelfItem>> shelfItemsFromJson(const QJsonValue &value);

/// The same as a document in UTF-8.
[[nodiscard]] QByteArray encodeShelfItems(const QList<ShelfItem> &items);
[[nodiscard]] std::optional<QList<ShelfItem>> decodeShelfItems(const QByteArray &document);

} // namespace perchly
