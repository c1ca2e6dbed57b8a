#include "Shortcuts.h"

#include "Applications.h"
#include "ShelfLibrary.h"
#include "ShortcutsTool.h"
#include "ShownText.h"

#include <QDir>
#include <QPointer>

namespace perchly {

Shortcuts::Shortcuts(ShortcutsTool &tool, Applications &applications, ShelfLibrary &library,
                     Notice notice, Notice briefNotice, QObject *parent)
    : KeyedRows({"name", "label"}, parent)
    , m_tool(tool)
    , m_applications(applications)
    , m_library(library)
    , m_notice(std::move(notice))
    , m_briefNotice(std::move(briefNotice)) {
    // Its exit status is unknown.
    m_busy = tool.resume([guard = QPointer(this)] {
        if (guard && guard->m_stopped) {
            guard->m_briefNotice(tr("Stopped: %1").arg(guard->m_busy));
        }
        if (guard) {
            guard->setBusy({});
        }
    });
}

void Shortcuts::refresh() {
    m_list = m_tool.execute({QStringLiteral("list")}, [this](const ShortcutsTool::Result &result) {
        const auto task = std::move(m_list);
        if (result.status == 0) {
            show(result.output);
        } else {
            m_notice(tr("Could not load your shortcuts. Their folder is %1").arg(folder()));
        }
    });
}

void Shortcuts::show(const QString &list) {
    Rows rows;
    for (const QString &name : list.split(u'\n', Qt::SkipEmptyParts)) {
        rows.append({name, {name, inOneLine(name)}});
    }
    setRows(rows);
    m_isListed = true;
    Q_EMIT busyChanged();
}

bool Shortcuts::busyIsUnlisted() const {
    bool isUnlisted = m_isListed && !m_busy.isNull();
    for (int row = 0; row < count(); ++row) {
        isUnlisted = isUnlisted && field(row, "name") != m_busy;
    }
    return isUnlisted;
}

void Shortcuts::setBusy(const QString &name) {
    m_busy = name;
    m_stopped = false;
    Q_EMIT busyChanged();
}

void Shortcuts::run(const QString &name) {
    if (!m_busy.isNull()) {
        return;
    }
    setBusy(name.isNull() ? QStringLiteral("") : name); // not null, even if the name is
    m_run = m_tool.execute(
        {QStringLiteral("run"), name}, [this, name](const ShortcutsTool::Result &result) {
            const bool stopped = m_stopped;
            setBusy({});
            if (result.status == 0) {
                m_briefNotice(tr("Finished: %1").arg(name));
            } else if (stopped) {
                m_briefNotice(tr("Stopped: %1").arg(name));
            } else {
                m_notice(tr("Shortcut failed: %1. Run it in a terminal to see why.").arg(name));
            }
            if (!stopped) {
                Q_EMIT ended(name, result.status);
            }
        });
}

void Shortcuts::stop() {
    if (!m_busy.isNull()) {
        m_stopped = true;
        m_tool.stopRuns();
    }
}

void Shortcuts::addToShelf(const QString &name) {
    m_library.add(ShelfItem::forShortcut(name));
}

QString Shortcuts::folder() const {
    const QString home = QDir::homePath();
    const QString folder = m_tool.folder();
    return folder.startsWith(home + u'/') ? u'~' + folder.mid(home.size()) : folder;
}

void Shortcuts::openFolder() {
    m_tool.prepareFolder([guard = QPointer(this)](const QString &error) {
        if (guard && error.isEmpty()) {
            const QUrl folder = QUrl::fromLocalFile(guard->m_tool.folder());
            guard->m_applications.openUrl(
                folder, reportFailure(guard->m_notice, tr("Could not open %1. %2"), folder));
            guard->refresh();
        } else if (guard) {
            guard->m_notice(error);
        }
    });
}

} // namespace perchly
