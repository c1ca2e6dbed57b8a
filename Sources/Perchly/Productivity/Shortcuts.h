#pragma once

#include "Clock.h"
#include "KeyedRows.h"
#include "Notice.h"

namespace perchly {

class Applications;
class ShelfLibrary;
class ShortcutsTool;

/// The user's shortcuts, in the order of the tool's last list. Row fields: "name", and "label" for
/// display. Main thread only.
class Shortcuts : public perchly::KeyedRows {
    Q_OBJECT
    Q_PROPERTY(QString busy READ busy NOTIFY busyChanged FINAL)
    Q_PROPERTY(bool busyIsUnlisted READ busyIsUnlisted NOTIFY busyChanged FINAL)
    Q_PROPERTY(QString folder READ folder CONSTANT FINAL)
public:
    /// Shows a shortcut that an earlier instance of the program left running as busy. `briefNotice`
    /// is for what did not fail. The arguments must outlive this object.
    Shortcuts(ShortcutsTool &tool, Applications &applications, ShelfLibrary &library, Notice notice,
              Notice briefNotice, QObject *parent = nullptr);

    /// Name of the running shortcut; null if none runs.
    [[nodiscard]] QString busy() const { return m_busy; }
    /// Whether the running shortcut is missing from the last list.
    [[nodiscard]] bool busyIsUnlisted() const;
    /// Lists the shortcuts again in the background; the last call wins. A failure becomes a notice.
    Q_INVOKABLE void refresh();
    /// Runs a shortcut and reports its end as a notice. Does nothing while another runs.
    Q_INVOKABLE void run(const QString &name);
    /// Ends the running shortcut and its child processes; a notice reports the end.
    Q_INVOKABLE void stop();
    Q_INVOKABLE void addToShelf(const QString &name);
    /// The shortcuts folder, with "~" for the user's home.
    [[nodiscard]] QString folder() const;
    /// Creates the folder if needed and shows it in the file manager.
    Q_INVOKABLE void openFolder();

Q_SIGNALS:
    void busyChanged();
    /// A shortcut has ended by itself. The status is that of ShortcutsTool::Result.
    void ended(const QString &name, std::int32_t status);

private:
    void setBusy(const QString &name);
    void show(const QString &list);

    ShortcutsTool &m_tool;
    Applications &m_applications;
    ShelfLibrary &m_library;
    Notice m_notice;
    Notice m_briefNotice;
    QString m_busy;
    bool m_isListed = false; ///< once
    bool m_stopped = false;  ///< stop() was called for the busy shortcut
    Task m_run;
    Task m_list;
};

} // namespace perchly
