#include "WorkspaceRows.h"

#include "PictureFile.h"
#include "ShownText.h"
#include "TextSearch.h"

#include <QCoreApplication>
#include <QThreadPool>

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

void HeldRows::refresh() {
    QList<Row> rows;
    for (const QUrl &url : tools()->held()) {
        if (url.isLocalFile() && !m_pictures.contains(url)) {
            m_pictures.insert(url, false);
            look(url);
        }
        rows.append({url.toString(QUrl::FullyEncoded),
                     {{QStringLiteral("url"), url},
                      {QStringLiteral("label"), inOneLine(Productivity::labelOf(url))},
                      {QStringLiteral("isFile"), url.isLocalFile()},
                      {QStringLiteral("isPicture"), m_pictures.value(url)}}});
    }
    setRows(rows);
}

void HeldRows::lookAgain() {
    if (tools() != nullptr) {
        m_pictures.clear();
        refresh();
    }
}

void HeldRows::look(const QUrl &url) {
    QThreadPool::globalInstance()->start([url, rows = QPointer(this)] {
        const bool isPicture = picturefile::isPicture(url.toLocalFile());
        const auto finish = [url, isPicture, rows] {
            if (rows && rows->tools() != nullptr) {
                rows->m_pictures.insert(url, isPicture);
                rows->refresh();
            }
        };
        QMetaObject::invokeMethod(QCoreApplication::instance(), finish, Qt::QueuedConnection);
    });
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
                          {QStringLiteral("label"), shownPart(label)},
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
        rows.append({name, {{QStringLiteral("name"), name}}});
    }
    setRows(rows);
}

} // namespace perchly
