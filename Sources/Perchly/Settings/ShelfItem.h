#pragma once

#include "Widget.h"

#include <QLatin1StringView>
#include <QObject>
#include <QString>

#include <optional>
#include <tuple>
#include <utility>

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
    std::optional<QString> widgetName = std::nullopt;   ///< title, if it is a widget
    std::optional<QString> path = std::nullopt;         ///< desktop entry, if it is an application
    std::optional<QString> shortcutName = std::nullopt; ///< listed name, if it is a shortcut
    bool visible = true;
    bool favorite = false;

    [[nodiscard]] static ShelfItem forWidget(Widget widget);
    [[nodiscard]] static ShelfItem forShortcut(const QString &name);
    /// Keeps `path` as given; the identifier is the path without dot segments.
    [[nodiscard]] static ShelfItem forApplication(const QString &path, const QString &name);

    /// The name as views show it: in one line, without direction marks.
    [[nodiscard]] QString shownName() const;
    /// Applications and shortcuts can be removed from the shelf; other items only hidden.
    [[nodiscard]] bool removable() const;
    /// "widget", "shortcut" or "application", in this order of precedence; empty for anything else.
    [[nodiscard]] QString kind() const;
    /// The widget's title; empty if the item is not a widget.
    [[nodiscard]] QString widgetTitle() const;
    /// Empty without a path.
    [[nodiscard]] QString applicationPath() const { return path.value_or(QString()); }

    /// See StoredRecords.h.
    [[nodiscard]] static constexpr auto fields() {
        return std::tuple(std::pair(QLatin1StringView("id"), &ShelfItem::id),
                          std::pair(QLatin1StringView("name"), &ShelfItem::name),
                          std::pair(QLatin1StringView("widgetName"), &ShelfItem::widgetName),
                          std::pair(QLatin1StringView("path"), &ShelfItem::path),
                          std::pair(QLatin1StringView("shortcutName"), &ShelfItem::shortcutName),
                          std::pair(QLatin1StringView("visible"), &ShelfItem::visible),
                          std::pair(QLatin1StringView("favorite"), &ShelfItem::favorite));
    }

    bool operator==(const ShelfItem &) const = default;
};

} // namespace perchly
