#pragma once

#include "Clock.h"
#include "KeyedRows.h"

#include <QHash>
#include <QSet>
#include <QTimer>
#include <QUrl>

namespace perchly {

class OpenPanel;

/// The tray: files, folders and web links held for this run, oldest first, no two equal. As rows:
/// "url", "label", "isFile" and "isPicture", which is found out in the background.
/// Main thread only.
class HeldFiles : public perchly::KeyedRows {
    Q_OBJECT
    Q_PROPERTY(QList<QUrl> urls READ urls NOTIFY changed FINAL)
public:
    explicit HeldFiles(OpenPanel &openPanel, QObject *parent = nullptr);

    [[nodiscard]] const QList<QUrl> &urls() const { return m_urls; }
    /// Adds the URLs that are not held yet; only local files and http and https links.
    Q_INVOKABLE void hold(const QList<QUrl> &urls);
    /// The same for a dropped "text/uri-list", which shows how each scheme was written, unlike a
    /// QUrl: links in capitals are not taken. False, and nothing happens, if it lists nothing.
    Q_INVOKABLE bool holdDropped(const QString &uriList);
    /// Asks for files and folders and holds those chosen. Does nothing while it is asking.
    Q_INVOKABLE void addFiles();
    /// Holds a typed web link; false, and nothing happens, if it is not one.
    Q_INVOKABLE bool addLink(const QString &text);
    Q_INVOKABLE void remove(const QUrl &url);
    Q_INVOKABLE void clear() { setUrls({}); }
    /// Checks again which files are pictures; until that is known, they stay as they were.
    Q_INVOKABLE void lookAgain();

    /// The last part of a file's path, or the whole link.
    [[nodiscard]] static QString labelOf(const QUrl &url);

Q_SIGNALS:
    void changed();

private:
    void setUrls(const QList<QUrl> &urls);
    void refresh();
    void look(const QUrl &url);

    OpenPanel &m_openPanel;
    Task m_asking;
    QList<QUrl> m_urls;
    QHash<QUrl, bool> m_pictures; ///< false also for those not looked at yet
    QSet<QUrl> m_looking;
    QTimer m_refreshSoon; ///< one refresh for many answers
};

} // namespace perchly
