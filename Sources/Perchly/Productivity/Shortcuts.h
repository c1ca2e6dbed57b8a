#pragma once

#include "Clock.h"
#include "KeyedRows.h"
#include "Notice.h"

namespace perchly {

class Applications;
class ShelfLibrary;
class ShortcutsTool;

/// The user's shortcuts, in the order of the tool's last list: "name", and "label" to be shown.
/// Main thread only.
class Shortcuts : public perchly::KeyedRows {
    Q_OBJECT
    Q_PROPERTY(QString busy READ busy NOTIFY busyChanged FINAL)
    Q_PROPERTY(QString folder READ folder CONSTANT FINAL)
public:
    /// All of these must outlive this object.
    Shortcuts(ShortcutsTool &tool, Applications &applications, ShelfLibrary &library, Notice notice,
              QObject *parent = nullptr);

    /// Name of the shortcut that is running; null when none is.
    [[nodiscard]] QString busy() const { return m_busy; }
    /// Lists them again in the background; the last call counts. A failure becomes a notice.
    Q_INVOKABLE void refresh();
    /// Runs one and reports its end as a notice. Nothing happens while another runs.
    Q_INVOKABLE void run(const QString &name);
    /// Ends the running shortcut and what it has started; its end is reported when it comes.
    Q_INVOKABLE void stop();
    Q_INVOKABLE void addToShelf(const QString &name);
    /// Where the shortcuts are, with "~" for the user's home.
    [[nodiscard]] QString folder() const;
    /// Creates that folder if needed and shows it in the file manager.
    Q_INVOKABLE void openFolder();

Q_SIGNALS:
    void busyChanged();

private:
    void setBusy(const QString &name);
    void show(const QString &list);

    ShortcutsTool &m_tool;
    Applications &m_applications;
    ShelfLibrary &m_library;
    Notice m_notice;
    QString m_busy;
    bool m_stopped = false; ///< the busy shortcut was asked to end
    Task m_run;
    Task m_list;
};

} // namespace perchly
