#pragma once

#include "Clock.h"
#include "KeyedRows.h"

#include <QHash>
#include <QSet>
#include <QTimer>
#include <QUrl>

namespace perchly {

class OpenPanel;

/// The tray: files, folders and web links held for this run, oldest first, without duplicates. Row
/// fields: "url", "label", "isFile" and "isPicture", which is determined in the background. Main
/// thread only.
class HeldFiles : public perchly::KeyedRows {
    Q_OBJECT
    Q_PROPERTY(QList<QUrl> urls READ urls NOTIFY changed FINAL)
    /// The row that was held last, until a view has shown it; else -1.
    Q_PROPERTY(int landed MEMBER m_landed NOTIFY landedChanged FINAL)
public:
    explicit HeldFiles(OpenPanel &openPanel, QObject *parent = nullptr);

    [[nodiscard]] const QList<QUrl> &urls() const { return m_urls; }
    /// Adds the URLs that are not held yet; accepts only local files and http and https links.
    Q_INVOKABLE void hold(const QList<QUrl> &urls);
    /// The same for a dropped "text/uri-list", which unlike a QUrl keeps each scheme as written:
    /// links in capitals are not accepted. Returns false and does nothing if there are no URLs.
    Q_INVOKABLE bool holdDropped(const QString &uriList);
    /// Asks for files and folders and holds those chosen. Does nothing while already asking.
    Q_INVOKABLE void addFiles();
    /// Holds a typed web link. Returns false and does nothing if it is not one.
    Q_INVOKABLE bool addLink(const QString &text);
    Q_INVOKABLE void remove(const QUrl &url);
    Q_INVOKABLE void clear() { setUrls({}); }
    /// Checks again which files are pictures; until then they keep their state.
    Q_INVOKABLE void lookAgain();

    /// The last part of a file's path, or the whole link.
    [[nodiscard]] static QString labelOf(const QUrl &url);

Q_SIGNALS:
    void changed();
    void landedChanged();

private:
    void setUrls(const QList<QUrl> &urls);
    void refresh();
    void look(const QUrl &url);

    OpenPanel &m_openPanel;
    Task m_asking;
    QList<QUrl> m_urls;
    int m_landed = -1;
    QHash<QUrl, bool> m_pictures; ///< false also for files not yet checked
    QSet<QUrl> m_looking;
    QTimer m_refreshSoon; ///< one refresh for many answers
};

} // namespace perchly
