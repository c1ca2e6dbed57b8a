#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

#include <functional>

class QIcon;

namespace perchly {

struct StatusMenuEntry {
    QString title;
    std::function<void()> action;
    QKeySequence shortcut;
};

/// The program's status icon and its menu. Hidden until the desktop has a place for such icons.
/// Main thread only.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// Call it once. The icon must be visible on light and dark panels; a desktop with a symbolic
    /// icon for the program shows that one instead. A click opens the menu, or calls `activated`
    /// where programs cannot place menus at the icon.
    virtual void show(const QIcon &icon, const QString &accessibleName,
                      const QList<StatusMenuEntry> &menu, std::function<void()> activated) = 0;
};

} // namespace perchly
