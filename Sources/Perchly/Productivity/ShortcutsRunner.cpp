// Listing and running the person's shortcuts.

#include "Hosts.h"
#include "Productivity.h"

#include <QDir>
#include <QPointer>

namespace perchly {

void Productivity::refreshShortcuts() {
    const int number = m_refreshNumber++;
    m_refreshes[number] = m_hosts.shortcuts->execute(
        {QStringLiteral("list")}, [this, number](const ShortcutsTool::Result &result) {
            const auto task = std::move(m_refreshes[number]);
            m_refreshes.erase(number);
            if (result.status != 0) {
                setMessage(QStringLiteral(
                    "Could not load Shortcuts. Open the Shortcuts app and try again."));
                return;
            }
            m_shortcuts = result.output.split(u'\n', Qt::SkipEmptyParts);
            Q_EMIT shortcutsChanged();
        });
}

void Productivity::runShortcut(const QString &name) {
    if (!m_busyShortcut.isNull()) {
        return;
    }
    // A name is present even where it is empty.
    m_busyShortcut = name.isNull() ? QStringLiteral("") : name;
    m_stopped = false;
    Q_EMIT busyShortcutChanged();
    m_shortcutRun = m_hosts.shortcuts->execute(
        {QStringLiteral("run"), name}, [this, name](const ShortcutsTool::Result &result) {
            m_busyShortcut = QString();
            Q_EMIT busyShortcutChanged();
            setMessage(result.status == 0 ? QStringLiteral("Finished: ") + name
                       : m_stopped        ? QStringLiteral("Stopped: ") + name
                                          : QStringLiteral("Shortcut failed: ") + name +
                                         QStringLiteral(". Check its permissions in Shortcuts."));
        });
}

void Productivity::stopShortcut() {
    if (!m_busyShortcut.isNull()) {
        m_stopped = true;
        m_hosts.shortcuts->stopRuns();
    }
}

void Productivity::addToShelf(const QString &name, ShelfLibrary *library) {
    library->add(ShelfItem::forShortcut(name));
}

QString Productivity::shortcutsFolder() const {
    const QString home = QDir::homePath();
    const QString folder = m_hosts.shortcuts->folder();
    return folder.startsWith(home + u'/') ? u'~' + folder.mid(home.size()) : folder;
}

void Productivity::openShortcutsFolder() {
    const QUrl folder = QUrl::fromLocalFile(m_hosts.shortcuts->folder());
    m_hosts.shortcuts->prepareFolder([this, folder, guard = QPointer(this)](const QString &error) {
        if (!guard) {
            return;
        }
        if (error.isEmpty()) {
            open(folder);
            refreshShortcuts();
        } else {
            setMessage(error);
        }
    });
}

} // namespace perchly
