// The tray of held files and links.

#include "Hosts.h"
#include "PictureFile.h"
#include "Productivity.h"

#include <QDir>
#include <QSet>
#include <QSysInfo>

namespace perchly {

namespace {

bool isWebScheme(QStringView scheme) {
    return scheme == QLatin1StringView("https") || scheme == QLatin1StringView("http");
}

/// As it is written: a QUrl would say it in lower case.
QStringView schemeOf(QStringView text) {
    return text.left(text.indexOf(u':'));
}

/// A file's path, or the whole link.
QString asText(const QUrl &url) {
    return url.isLocalFile() ? url.toLocalFile() : url.toString(QUrl::FullyEncoded);
}

/// One address for each file: some programs name this machine in it or encode more signs of the
/// name than others.
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
    // A name that is not UTF-8 lives in its encoded form only.
    return path.contains(QChar::ReplacementCharacter) ? result : QUrl::fromLocalFile(path);
}

} // namespace

void Productivity::setHeld(const QList<QUrl> &held) {
    if (held != m_held) {
        m_held = held;
        Q_EMIT heldChanged();
    }
}

void Productivity::hold(const QList<QUrl> &urls) {
    QList<QUrl> held = m_held;
    QSet<QUrl> known(held.cbegin(), held.cend());
    for (const QUrl &given : urls) {
        const QUrl url = normalized(given);
        const bool isWanted = url.isLocalFile() ? url.host().isEmpty() : isWebScheme(url.scheme());
        if (isWanted && !known.contains(url)) {
            known.insert(url);
            held.append(url);
        }
    }
    setHeld(held);
}

bool Productivity::holdDropped(const QString &uriList) {
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

void Productivity::addFiles() {
    if (m_openPanel) {
        return;
    }
    m_openPanel = m_hosts.openPanel->ask(
        {.title = QStringLiteral("Add files"), .confirmLabel = QStringLiteral("Add"), .folder = {}},
        [this](const QList<QUrl> &chosen) {
            const auto task = std::move(m_openPanel);
            hold(chosen);
        });
}

bool Productivity::addLink(const QString &text) {
    const QUrl url(text);
    if (!isWebScheme(schemeOf(text)) || !url.isValid() || url.isRelative()) {
        return false;
    }
    hold({url});
    return true;
}

void Productivity::removeHeld(const QUrl &url) {
    QList<QUrl> held = m_held;
    held.removeAll(url);
    setHeld(held);
}

void Productivity::copyItems(const QList<QUrl> &urls) {
    if (!urls.isEmpty()) {
        m_hosts.pasteboard->writeItems(urls);
        finishCopy();
    }
}

void Productivity::copyPath(const QUrl &url) {
    copyText(asText(url));
}

void Productivity::copyImage(const QUrl &url) {
    if (!url.isLocalFile()) {
        copyPath(url);
        return;
    }
    m_pool.start([this, url, number = ++m_copyNumber] {
        const QByteArray png = picturefile::asPng(url.toLocalFile());
        const auto finish = [this, url, png, number] {
            if (number != m_copyNumber) {
                return; // something else was copied meanwhile
            }
            if (png.isEmpty()) {
                copyPath(url);
            } else {
                copy(Clip::ofImage(png));
            }
        };
        QMetaObject::invokeMethod(this, finish, Qt::QueuedConnection);
    });
}

QString Productivity::labelOf(const QUrl &url) {
    if (!url.isLocalFile()) {
        return url.toString(QUrl::FullyEncoded);
    }
    const QString path = QDir::cleanPath(url.toLocalFile());
    const QString name = path.mid(path.lastIndexOf(u'/') + 1);
    return name.isEmpty() ? path : name;
}

} // namespace perchly
