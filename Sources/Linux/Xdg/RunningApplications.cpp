#include "RunningApplications.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <gio/gdesktopappinfo.h>

#include <memory>

namespace perchly {

namespace {

struct Release {
    void operator()(GDesktopAppInfo *entry) const { g_object_unref(entry); }
};
using Entry = std::unique_ptr<GDesktopAppInfo, Release>;

QByteArray processFile(std::int32_t pid, const char *name) {
    QFile file(QStringLiteral("/proc/%1/%2").arg(QString::number(pid), QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The entry's path, which a launched program and all its children carry.
QString launchedEntry(std::int32_t pid) {
    QString path;
    bool isItself = false;
    for (const QByteArray &variable : processFile(pid, "environ").split('\0')) {
        if (variable.startsWith("GIO_LAUNCHED_DESKTOP_FILE=")) {
            path = QFile::decodeName(variable.mid(variable.indexOf('=') + 1));
        } else if (variable == "GIO_LAUNCHED_DESKTOP_FILE_PID=" + QByteArray::number(pid)) {
            isItself = true;
        }
    }
    return isItself ? path : QString();
}

/// The entry's name, from the unit in which the desktop runs the program: app-gnome-NAME-123.scope
/// or app-NAME@456.service. Dashes of the name are written as \x2d.
QString unitName(std::int32_t pid) {
    static const QRegularExpression unit(
        QStringLiteral("/app-(?:[^-/]+-)?([^-/@]+)(?:-\\d+\\.scope|(?:@[^/]*)?\\.service)$"));
    const QString group = QString::fromUtf8(processFile(pid, "cgroup")).trimmed();
    QString name = unit.match(group).captured(1);
    return name.replace(QStringLiteral("\\x2d"), QStringLiteral("-"));
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

std::optional<RunningApplication> findRunningApplication(std::int32_t pid,
                                                         const QStringList &names) {
    if (const QString path = launchedEntry(pid); !path.isEmpty()) {
        const Entry entry(
            g_desktop_app_info_new_from_filename(QFile::encodeName(path).constData()));
        if (const auto found = described(entry)) {
            return found;
        }
    }
    for (const QString &name : QStringList{unitName(pid)} + names) {
        if (const auto found = described(entryNamed(name))) {
            return found;
        }
    }
    return std::nullopt;
}

} // namespace perchly
