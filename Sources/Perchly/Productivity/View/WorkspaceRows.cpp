#include "WorkspaceRows.h"

#include "PictureFile.h"
#include "ShownText.h"
#include "TextSearch.h"

#include <QCoreApplication>
#include <QThreadPool>

#include <utility>

namespace perchly {

void WorkspaceRows::setTools(Productivity *tools) {
    if (m_tools == tools) {
        return;
    }
    if (m_tools) {
        m_tools->disconnect(this);
    }
    m_tools = tools;
    if (m_tools) {
        connect(m_tools, announcement(), this, &WorkspaceRows::refresh);
        refresh();
    }
    Q_EMIT toolsChanged();
}

namespace {

QString shownLabel(const QUrl &url) {
    const QString label = inOneLine(Productivity::labelOf(url));
    return showsNothing(label) ? url.fileName(QUrl::FullyEncoded) : label;
}

/// Files may lie on a disk that does not answer: what waits for one holds up nothing else.
QThreadPool &lookingThreads() {
    static QPointer<QThreadPool> pool;
    if (!pool) {
        pool = new QThreadPool(QCoreApplication::instance());
        pool->setMaxThreadCount(2);
    }
    return *pool;
}

} // namespace

void HeldRows::refresh() {
    QList<Row> rows;
    for (const QUrl &url : tools()->held()) {
        if (url.isLocalFile() && !m_pictures.contains(url)) {
            m_pictures.insert(url, false);
            look(url);
        }
        rows.append({url.toString(QUrl::FullyEncoded),
                     {{QStringLiteral("url"), url},
                      {QStringLiteral("label"), shownLabel(url)},
                      {QStringLiteral("isFile"), url.isLocalFile()},
                      {QStringLiteral("isPicture"), m_pictures.value(url)}}});
    }
    setRows(rows);
}

void HeldRows::lookAgain() {
    if (tools() == nullptr) {
        return;
    }
    const QList<QUrl> held = tools()->held();
    const QSet<QUrl> known(held.cbegin(), held.cend());
    m_pictures.removeIf([&known](const auto &entry) { return !known.contains(entry.key()); });
    for (auto entry = m_pictures.cbegin(); entry != m_pictures.cend(); ++entry) {
        look(entry.key());
    }
}

void HeldRows::look(const QUrl &url) {
    if (m_looking.contains(url)) {
        return;
    }
    m_looking.insert(url);
    lookingThreads().start([url, rows = QPointer(this)] {
        const bool isPicture = picturefile::isPicture(url.toLocalFile());
        const auto finish = [url, isPicture, rows] {
            if (rows) {
                rows->m_looking.remove(url);
                rows->finishLook(url, isPicture);
            }
        };
        QMetaObject::invokeMethod(QCoreApplication::instance(), finish, Qt::QueuedConnection);
    });
}

void HeldRows::finishLook(const QUrl &url, bool isPicture) {
    const auto known = m_pictures.find(url);
    if (known == m_pictures.end() || std::exchange(*known, isPicture) == isPicture ||
        m_isRefreshDue) {
        return;
    }
    m_isRefreshDue = true; // one for all answers that are there by then
    const auto refreshNow = [this] {
        m_isRefreshDue = false;
        if (tools() != nullptr) {
            refresh();
        }
    };
    QMetaObject::invokeMethod(this, refreshNow, Qt::QueuedConnection);
}

void ClipRows::setSearch(const QString &search) {
    if (m_search != search) {
        m_search = search;
        if (tools() != nullptr) {
            refresh();
        }
        Q_EMIT searchChanged();
    }
}

void ClipRows::refresh() {
    QList<Row> rows;
    for (const Clip &clip : tools()->clips()) {
        const QString label = clip.label();
        if (matchesSearch(label, m_search)) {
            rows.append({clip.id.toString(),
                         {{QStringLiteral("id"), clip.id.toString()},
                          {QStringLiteral("label"), rowText(label)},
                          {QStringLiteral("isBlank"), showsNothing(label)},
                          {QStringLiteral("isImage"), clip.isImage()},
                          {QStringLiteral("text"), clip.text.value_or(QString())}}});
        }
    }
    setRows(rows);
}

void LayoutRows::refresh() {
    QList<Row> rows;
    for (const SavedLayout &layout : tools()->layouts()) {
        rows.append({layout.id.toString(),
                     {{QStringLiteral("id"), layout.id.toString()},
                      {QStringLiteral("name"), inOneLine(layout.name)}}});
    }
    setRows(rows);
}

void ShortcutRows::refresh() {
    QList<Row> rows;
    for (const QString &name : tools()->shortcuts()) {
        rows.append(
            {name, {{QStringLiteral("name"), name}, {QStringLiteral("label"), inOneLine(name)}}});
    }
    setRows(rows);
}

} // namespace perchly
