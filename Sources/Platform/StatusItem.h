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

/// The program's item among the desktop's status icons, with its menu. Where the desktop has no
/// place for such items nothing is shown, until one appears. Main thread only.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// Call it once. The icon is to show on light and dark panels alike; a desktop that has a
    /// symbolic icon for the program shows that one instead.
    virtual void show(const QIcon &icon, const QString &accessibleName,
                      const QList<StatusMenuEntry> &menu) = 0;
};

} // namespace perchly
