#include "GioFileServices.h"

#include "ChildProcess.h"
#include "GioLaunch.h"
#include "GioOwned.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QStandardPaths>

#include <array>
#include <chrono>
#include <gio/gdesktopappinfo.h>

namespace perchly {

namespace {

constexpr int fileManagerMilliseconds = 15'000;      // it may have to be started first
constexpr std::chrono::seconds longestMailStart{30}; // what ends later is the program itself
constexpr QLatin1StringView mailTarget("mail");

QString fileError(const QUrl &url) {
    const QString path = url.toLocalFile();
    return url.isLocalFile() && !QFileInfo::exists(path)
               ? QStringLiteral("There is nothing at “%1”.").arg(path)
               : QString();
}

/// Asks the file manager to select the file; false if there is none that can.
bool showItem(const QUrl &file, GCancellable *cancellable) {
    const gio::Owned<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, cancellable, nullptr));
    if (!bus) {
        return false;
    }
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE); // a lost bus must not end the program
    const QByteArray uri = file.toEncoded(QUrl::FullyEncoded);
    const std::array<const char *, 2> uris{uri.constData(), nullptr};
    GVariant *reply = g_dbus_connection_call_sync(
        bus.get(), "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
        "org.freedesktop.FileManager1", "ShowItems", g_variant_new("(^ass)", uris.data(), ""),
        nullptr, G_DBUS_CALL_FLAGS_NONE, fileManagerMilliseconds, cancellable, nullptr);
    if (reply == nullptr) {
        return false;
    }
    g_variant_unref(reply);
    return true;
}

QString revealFile(const QUrl &file, const StartNotices &notices, GCancellable *cancellable) {
    const QString error = fileError(file);
    if (!error.isEmpty() || showItem(file, cancellable)) {
        return error;
    }
    const QString folder = QFileInfo(file.toLocalFile()).absolutePath();
    return giolaunch::url(QUrl::fromLocalFile(folder), notices, cancellable);
}

/// The kind of what is there; null if nothing is.
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
    if (!QStandardPaths::findExecutable(QStringLiteral("xdg-email")).isEmpty()) {
        targets.append({mailTarget, QStringLiteral("E-mail")});
    }
    return targets;
}

QString mail(const QUrl &url, const StopRequest &stop) {
    const QString program = QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
    const QStringList arguments =
        url.isLocalFile() ? QStringList{QStringLiteral("--attach"), url.toLocalFile()}
                          : QStringList{QStringLiteral("--body"), url.toString(QUrl::FullyEncoded)};
    const QDeadlineTimer start(longestMailStart);
    // It may stay until the letter is sent, and the letter outlives this program.
    const ChildResult result =
        runChild(program, arguments, {.mostOutput = 1 << 20}, stop, OnStop::LeaveChild);
    return result.status == 0 || start.hasExpired()
               ? QString()
               : QStringLiteral("No e-mail program could be started.");
}

} // namespace

GioFileServices::GioFileServices(StartNotices notices)
    : m_notices(std::move(notices))
    , m_cancellable(g_cancellable_new(), [](GCancellable *object) { g_object_unref(object); })
    , m_stop(std::make_unique<StopRequest>()) {
    m_pool.setMaxThreadCount(8); // a few slow services must not hold up the next one
    m_pool.setExpiryTimeout(1000);
}

GioFileServices::~GioFileServices() {
    g_cancellable_cancel(m_cancellable.get());
    m_stop->send();
}

void GioFileServices::reveal(const QUrl &file, Completion completion) {
    const auto work = [this, file](GCancellable *cancellable) {
        return revealFile(file, m_notices, cancellable);
    };
    start<QString>(work, std::move(completion));
}

void GioFileServices::findShareTargets(const QUrl &url, TargetsCompletion completion) {
    start<QList<ShareTarget>>(
        [url](GCancellable *cancellable) { return shareTargets(url, cancellable); },
        std::move(completion));
}

void GioFileServices::share(const QUrl &url, const QString &targetId, Completion completion) {
    const auto work = [this, url, targetId](GCancellable *cancellable) {
        const QString error = fileError(url);
        if (!error.isEmpty()) {
            return error;
        }
        return targetId == mailTarget ? mail(url, *m_stop)
                                      : giolaunch::openWith(targetId, url, m_notices, cancellable);
    };
    start<QString>(work, std::move(completion));
}

template <class Result>
void GioFileServices::start(std::function<Result(GCancellable *)> work,
                            std::function<void(const Result &)> completion) {
    m_pool.start([this, work = std::move(work), completion = std::move(completion)]() mutable {
        const Result result = work(m_cancellable.get());
        QMetaObject::invokeMethod(
            &m_receiver, [completion = std::move(completion), result] { completion(result); },
            Qt::QueuedConnection);
    });
}

} // namespace perchly
