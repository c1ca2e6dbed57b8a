#include "HeldFiles.h"

#include "OpenPanel.h"
#include "ShownText.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QMimeDatabase>
#include <QPointer>
#include <QSysInfo>
#include <QThreadPool>

#include <utility>

namespace perchly {

using namespace std::chrono_literals;

namespace {

bool isWebScheme(QStringView scheme) {
    return scheme == QLatin1StringView("https") || scheme == QLatin1StringView("http");
}

/// As written, whereas QUrl converts it to lower case.
QStringView schemeOf(QStringView text) {
    return text.left(text.indexOf(u':'));
}

/// One URL for each file: some programs add this machine's name or encode more characters.
QUrl normalized(const QUrl &url) {
    const QString host = url.host();
    const bool here = host.isEmpty() || host == QLatin1StringView("localhost") ||
                      host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
    if (!url.isLocalFile() || !here) {
        return url;
    }
    QUrl result = url;
    result.setHost(QString());
    const QString path = result.toLocalFile();
    // A name that is not UTF-8 exists only in its encoded form.
    return path.contains(QChar::ReplacementCharacter) ? result : QUrl::fromLocalFile(path);
}

/// Whether a regular file starts like a picture that Qt can read. No image plug-in parses it.
bool isPicture(const QString &path) {
    static const QList<QByteArray> readable = QImageReader::supportedMimeTypes();
    if (!QFileInfo(path).isFile()) { // opening a pipe would block
        return false;
    }
    const QMimeDatabase types;
    QMimeType type = types.mimeTypeForFile(path, QMimeDatabase::MatchContent);
    if (type.isDefault()) { // TGA and WBMP have no signature
        type = types.mimeTypeForFile(path, QMimeDatabase::MatchExtension);
    }
    return readable.contains(type.name().toLatin1());
}

QString shownLabel(const QUrl &url) {
    const QString label = inOneLine(HeldFiles::labelOf(url));
    return showsNothing(label) ? url.fileName(QUrl::FullyEncoded) : label;
}

/// A separate pool: a file on a disk that does not answer must not hold up anything else.
QThreadPool &lookingThreads() {
    static QPointer<QThreadPool> pool;
    if (!pool) {
        pool = new QThreadPool(QCoreApplication::instance());
        pool->setMaxThreadCount(2);
    }
    return *pool;
}

} // namespace

HeldFiles::HeldFiles(OpenPanel &openPanel, QObject *parent)
    : KeyedRows({"url", "label", "isFile", "isPicture"}, parent)
    , m_openPanel(openPanel) {
    m_refreshSoon.setSingleShot(true);
    m_refreshSoon.setInterval(20ms);
    connect(&m_refreshSoon, &QTimer::timeout, this, &HeldFiles::refresh);
}

void HeldFiles::setUrls(const QList<QUrl> &urls) {
    if (urls == m_urls) {
        return;
    }
    m_urls = urls;
    m_landed = -1;
    for (const QUrl &url : urls) {
        if (url.isLocalFile() && !m_pictures.contains(url)) {
            m_pictures.insert(url, false);
            look(url);
        }
    }
    refresh();
    Q_EMIT changed();
}

void HeldFiles::refresh() {
    Rows rows;
    for (const QUrl &url : std::as_const(m_urls)) {
        rows.append({url.toString(QUrl::FullyEncoded),
                     {url, shownLabel(url), url.isLocalFile(), m_pictures.value(url)}});
    }
    setRows(rows);
}

void HeldFiles::hold(const QList<QUrl> &urls) {
    QList<QUrl> held = m_urls;
    QSet<QUrl> known(held.cbegin(), held.cend());
    QUrl last;
    for (const QUrl &given : urls) {
        const QUrl url = normalized(given);
        const bool isWanted = url.isLocalFile() ? url.host().isEmpty() : isWebScheme(url.scheme());
        if (isWanted) {
            last = url;
        }
        if (isWanted && !known.contains(url)) {
            known.insert(url);
            held.append(url);
        }
    }
    setUrls(held);
    m_landed = int(held.indexOf(last));
    Q_EMIT landedChanged();
}

bool HeldFiles::holdDropped(const QString &uriList) {
    bool isList = false;
    QList<QUrl> urls;
    for (const QStringView line : QStringView(uriList).split(u'\n', Qt::SkipEmptyParts)) {
        const QStringView text = line.trimmed();
        const QUrl url = QUrl::fromEncoded(text.toUtf8());
        if (text.startsWith(u'#') || !url.isValid() || url.isRelative()) {
            continue;
        }
        isList = true;
        if (url.isLocalFile() || isWebScheme(schemeOf(text))) {
            urls.append(url);
        }
    }
    hold(urls);
    return isList;
}

void HeldFiles::addFiles() {
    if (m_asking) {
        return;
    }
    m_asking = m_openPanel.ask({.title = tr("Add files"), .confirmLabel = tr("Add"), .folder = {}},
                               [this](const QList<QUrl> &chosen) {
                                   const auto task = std::move(m_asking);
                                   hold(chosen);
                               });
}

bool HeldFiles::addLink(const QString &text) {
    const QUrl url(text);
    if (!isWebScheme(schemeOf(text)) || !url.isValid() || url.isRelative()) {
        return false;
    }
    hold({url});
    return true;
}

void HeldFiles::remove(const QUrl &url) {
    QList<QUrl> held = m_urls;
    held.removeAll(url);
    setUrls(held);
}

void HeldFiles::lookAgain() {
    const QSet<QUrl> held(m_urls.cbegin(), m_urls.cend());
    m_pictures.removeIf([&held](const auto &entry) { return !held.contains(entry.key()); });
    for (auto entry = m_pictures.cbegin(); entry != m_pictures.cend(); ++entry) {
        look(entry.key());
    }
}

void HeldFiles::look(const QUrl &url) {
    if (m_looking.contains(url)) {
        return;
    }
    m_looking.insert(url);
    lookingThreads().start([url, store = QPointer(this)] {
        const auto finish = [url, isPicture = isPicture(url.toLocalFile()), store] {
            if (!store) {
                return;
            }
            store->m_looking.remove(url);
            const auto known = store->m_pictures.find(url);
            if (known != store->m_pictures.end() && std::exchange(*known, isPicture) != isPicture) {
                store->m_refreshSoon.start();
            }
        };
        QMetaObject::invokeMethod(QCoreApplication::instance(), finish, Qt::QueuedConnection);
    });
}

QString HeldFiles::labelOf(const QUrl &url) {
    if (!url.isLocalFile()) {
        return url.toString(QUrl::FullyEncoded);
    }
    const QString path = QDir::cleanPath(url.toLocalFile());
    const QString name = path.mid(path.lastIndexOf(u'/') + 1);
    return name.isEmpty() ? path : name;
}

} // namespace perchly
