#include "RunningApplications.h"

#include "ApplicationFolders.h"
#include "GioOwned.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <gio/gdesktopappinfo.h>

namespace perchly {

namespace {

using Entry = gio::Owned<GDesktopAppInfo>;

/// `number` may be "self".
QByteArray processFile(const QString &number, const char *name) {
    QFile file(QStringLiteral("/proc/%1/%2").arg(number, QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The desktop entry's path, from the environment of a launched program or its children.
QString launchedEntry(std::int32_t pid) {
    QString path;
    bool isItself = false;
    for (const QByteArray &variable : processFile(QString::number(pid), "environ").split('\0')) {
        if (variable.startsWith("GIO_LAUNCHED_DESKTOP_FILE=")) {
            path = QFile::decodeName(variable.mid(variable.indexOf('=') + 1));
        } else if (variable == "GIO_LAUNCHED_DESKTOP_FILE_PID=" + QByteArray::number(pid)) {
            isItself = true;
        }
    }
    return isItself ? path : QString();
}

QString unitName(std::int32_t pid) {
    return desktopUnitName(processFile(QString::number(pid), "cgroup"),
                           processFile(QStringLiteral("self"), "cgroup"));
}

Entry entryNamed(const QString &name) {
    if (name.isEmpty() || name.contains(u'/')) {
        return nullptr;
    }
    for (const QString &spelling : {name, name.toLower()}) {
        const QByteArray id = (spelling + QStringLiteral(".desktop")).toUtf8();
        if (GDesktopAppInfo *entry = g_desktop_app_info_new(id.constData())) {
            return Entry(entry);
        }
    }
    return nullptr;
}

std::optional<RunningApplication> described(const Entry &entry) {
    if (!entry || g_desktop_app_info_get_nodisplay(entry.get()) != FALSE) {
        return std::nullopt;
    }
    const char *name = g_app_info_get_display_name(G_APP_INFO(entry.get()));
    const QString path = QFile::decodeName(g_desktop_app_info_get_filename(entry.get()));
    return name == nullptr || *name == '\0'
               ? std::nullopt
               : std::optional(RunningApplication{QString::fromUtf8(name), path});
}

} // namespace

QString desktopUnitName(const QByteArray &groups, const QByteArray &ownGroups) {
    if (groups == ownGroups) {
        return {};
    }
    // app-gnome-NAME-123.scope or app-NAME@456.service. Dashes in the name are written as \x2d.
    static const QRegularExpression unit(
        QStringLiteral("/app-(?:[^-/]+-)?([^-/@]+)(?:-\\d+\\.scope|(?:@[^/]*)?\\.service)$"));
    QString name = unit.match(QString::fromUtf8(groups).trimmed()).captured(1);
    return name.replace(QStringLiteral("\\x2d"), QStringLiteral("-"));
}

std::optional<RunningApplication> findRunningApplication(std::optional<std::int32_t> pid,
                                                         const QStringList &names) {
    // Any program can set this path, so it may name a pipe or a file on a dead network disk.
    const QString path = pid ? launchedEntry(*pid) : QString();
    if (isInApplicationFolders(path) && QFileInfo(path).isFile()) {
        const Entry entry(
            g_desktop_app_info_new_from_filename(QFile::encodeName(path).constData()));
        if (const auto found = described(entry)) {
            return found;
        }
    }
    for (const QString &name : QStringList{pid ? unitName(*pid) : QString()} + names) {
        if (const auto found = described(entryNamed(name))) {
            return found;
        }
    }
    return std::nullopt;
}

} // namespace perchly
