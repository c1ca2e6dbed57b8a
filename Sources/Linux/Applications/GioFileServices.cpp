#include "GioFileServices.h"

#include "GioLaunch.h"
#include "GioOwned.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QStandardPaths>

#include <array>
#include <chrono>
#include <gio/gdesktopappinfo.h>
#include <utility>

namespace perchly {

namespace {

constexpr int fileManagerTimeout = 15'000;       // milliseconds; the file manager may have to start
constexpr std::chrono::seconds maxMailStart{30}; // xdg-email may run until the mail is sent
constexpr QLatin1StringView mailTarget("mail");

QString mailProgram() {
    return QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
}

QString fileError(const QUrl &url) {
    const QString path = url.toLocalFile();
    return url.isLocalFile() && !QFileInfo::exists(path)
               ? QCoreApplication::translate("Launch", "There is nothing at “%1”.").arg(path)
               : QString();
}

/// Asks the file manager to select the file; false if no file manager can.
bool showItem(const QUrl &file, const StartNotices &notices, GCancellable *cancellable) {
    const gio::Owned<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, cancellable, nullptr));
    if (!bus) {
        return false;
    }
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE); // survive a lost bus
    const QByteArray uri = file.toEncoded(QUrl::FullyEncoded);
    const std::array<const char *, 2> uris{uri.constData(), nullptr};
    const QByteArray token = notices.token ? notices.token() : QByteArray();
    GVariant *reply = g_dbus_connection_call_sync(
        bus.get(), "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
        "org.freedesktop.FileManager1", "ShowItems",
        g_variant_new("(^ass)", uris.data(), token.constData()), nullptr, G_DBUS_CALL_FLAGS_NONE,
        fileManagerTimeout, cancellable, nullptr);
    if (reply == nullptr) {
        return false;
    }
    g_variant_unref(reply);
    return true;
}

QString revealFile(const QUrl &file, const StartNotices &notices, GCancellable *cancellable) {
    const QString error = fileError(file);
    if (!error.isEmpty() || showItem(file, notices, cancellable)) {
        return error;
    }
    const QString folder = QFileInfo(file.toLocalFile()).absolutePath();
    return giolaunch::url(QUrl::fromLocalFile(folder), notices, cancellable);
}

/// The content type of the file, or of the link's scheme; null if the file is missing.
QByteArray contentType(const QUrl &url, GCancellable *cancellable) {
    if (!url.isLocalFile()) {
        return "x-scheme-handler/" + url.scheme().toUtf8();
    }
    const gio::Owned<GFile> file(g_file_new_for_uri(url.toEncoded(QUrl::FullyEncoded).constData()));
    const gio::Owned<GFileInfo> info(
        g_file_query_info(file.get(), G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE,
                          G_FILE_QUERY_INFO_NONE, cancellable, nullptr));
    return info ? QByteArray(g_file_info_get_content_type(info.get())) : QByteArray();
}

QList<FileServices::ShareTarget> shareTargets(const QUrl &url, GCancellable *cancellable) {
    QList<FileServices::ShareTarget> targets;
    const auto add = [&targets](GAppInfo *application) {
        const char *id = application != nullptr ? g_app_info_get_id(application) : nullptr;
        if (id == nullptr || g_app_info_should_show(application) == FALSE) {
            return;
        }
        const FileServices::ShareTarget target{
            QString::fromUtf8(id), QString::fromUtf8(g_app_info_get_display_name(application))};
        if (!targets.contains(target)) {
            targets.append(target);
        }
    };
    if (const QByteArray type = contentType(url, cancellable); !type.isEmpty()) {
        const gio::Owned<GAppInfo> first(g_app_info_get_default_for_type(type.constData(), FALSE));
        add(first.get());
        GList *others = g_app_info_get_recommended_for_type(type.constData());
        for (const GList *other = others; other != nullptr; other = other->next) {
            add(G_APP_INFO(other->data));
        }
        g_list_free_full(others, g_object_unref);
    }
    if (!mailProgram().isEmpty()) {
        targets.append({mailTarget, QCoreApplication::translate("Launch", "E-mail")});
    }
    return targets;
}

} // namespace

GioFileServices::GioFileServices(StartNotices notices)
    : m_notices(std::move(notices)) {}

void GioFileServices::reveal(const QUrl &file, Completion completion) {
    m_workers.run([file, notices = m_notices.forLaunch()](
                      GCancellable *cancellable) { return revealFile(file, notices, cancellable); },
                  std::move(completion));
}

void GioFileServices::findShareTargets(const QUrl &url, TargetsCompletion completion) {
    m_workers.run([url](GCancellable *cancellable) { return shareTargets(url, cancellable); },
                  std::move(completion));
}

void GioFileServices::share(const QUrl &url, const QString &targetId, Completion completion) {
    if (targetId == mailTarget) {
        mail(url, completion);
        return;
    }
    m_workers.run(
        [url, targetId, notices = m_notices.forLaunch()](GCancellable *cancellable) {
            const QString error = fileError(url);
            return error.isEmpty() ? giolaunch::openWith(targetId, url, notices, cancellable)
                                   : error;
        },
        std::move(completion));
}

void GioFileServices::mail(const QUrl &url, const Completion &completion) {
    const auto look = [url](GCancellable *) { return std::pair(fileError(url), mailProgram()); };
    m_workers.run(look, [this, url, completion](const std::pair<QString, QString> &found) {
        const auto &[error, program] = found;
        if (!error.isEmpty()) {
            completion(error);
            return;
        }
        const QStringList arguments =
            url.isLocalFile()
                ? QStringList{QStringLiteral("--attach"), url.toLocalFile()}
                : QStringList{QStringLiteral("--body"), url.toString(QUrl::FullyEncoded)};
        const auto mail = m_mailTasks.emplace(m_mailTasks.end());
        const auto finish = [this, mail, completion,
                             start = QDeadlineTimer(maxMailStart)](const ChildResult &result) {
            m_mailTasks.erase(mail);
            completion(
                result.status == 0 || start.hasExpired()
                    ? QString()
                    : QCoreApplication::translate("Launch", "No e-mail program could be started."));
        };
        // The mail program outlives Perchly.
        *mail = m_mails.run(program, arguments, {}, OnStop::LeaveChild, finish);
    });
}

} // namespace perchly
