#include "GioLaunch.h"

#include "GioOwned.h"
#include "LaunchContext.h"

#include <QFile>
#include <QFileInfo>

#include <gio/gdesktopappinfo.h>

#include <functional>

namespace perchly::giolaunch {

namespace {

using gio::Owned;

/// What an asynchronous call leaves behind when it is done.
struct Outcome {
    using Finish = gboolean (*)(GObject *source, GAsyncResult *result, GError **error);

    Finish finish;
    bool done = false;
    QString error;
};

void onDone(GObject *source, GAsyncResult *result, gpointer data) {
    auto *outcome = static_cast<Outcome *>(data);
    GError *error = nullptr;
    if (outcome->finish(source, result, &error) == FALSE) {
        outcome->error = error != nullptr ? QString::fromUtf8(error->message)
                                          : QStringLiteral("The launch failed.");
    }
    g_clear_error(&error);
    outcome->done = true;
}

QString waitFor(Outcome &outcome, const StartNotices &notices,
                const std::function<void(GAppLaunchContext *)> &begin) {
    const Owned<GMainContext> loop(g_main_context_new());
    g_main_context_push_thread_default(loop.get());
    const LaunchContext context = makeLaunchContext(notices);
    begin(context.get());
    while (!outcome.done) {
        g_main_context_iteration(loop.get(), TRUE);
    }
    g_main_context_pop_thread_default(loop.get());
    return outcome.error;
}

gboolean finishApplication(GObject *source, GAsyncResult *result, GError **error) {
    return g_app_info_launch_uris_finish(G_APP_INFO(source), result, error);
}

gboolean finishUrl(GObject *, GAsyncResult *result, GError **error) {
    return g_app_info_launch_default_for_uri_finish(result, error);
}

QString launch(GDesktopAppInfo *entry, GList *uris, const StartNotices &notices,
               GCancellable *cancellable) {
    Outcome outcome{.finish = finishApplication, .error = {}};
    return waitFor(outcome, notices, [&](GAppLaunchContext *context) {
        g_app_info_launch_uris_async(G_APP_INFO(entry), uris, context, cancellable, onDone,
                                     &outcome);
    });
}

/// The entry with its command line run by the system's terminal emulator; null if there is none.
Owned<GDesktopAppInfo> inSystemTerminal(const QString &path) {
    const std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)> file(g_key_file_new(),
                                                                      &g_key_file_unref);
    constexpr const char *group = G_KEY_FILE_DESKTOP_GROUP;
    if (g_key_file_load_from_file(file.get(), QFile::encodeName(path).constData(),
                                  G_KEY_FILE_KEEP_TRANSLATIONS, nullptr) == FALSE) {
        return nullptr;
    }
    const std::unique_ptr<char, decltype(&g_free)> command(
        g_key_file_get_string(file.get(), group, G_KEY_FILE_DESKTOP_KEY_EXEC, nullptr), &g_free);
    g_key_file_set_string(file.get(), group, G_KEY_FILE_DESKTOP_KEY_EXEC,
                          ("x-terminal-emulator -e " + QByteArray(command.get())).constData());
    g_key_file_set_boolean(file.get(), group, G_KEY_FILE_DESKTOP_KEY_TERMINAL, FALSE);
    return Owned<GDesktopAppInfo>(g_desktop_app_info_new_from_keyfile(file.get()));
}

} // namespace

QString application(const QString &path, const StartNotices &notices, GCancellable *cancellable) {
    const QFileInfo file(path);
    if (!file.isAbsolute() || !file.isFile()) {
        return QStringLiteral("There is no application at “%1”.").arg(path);
    }
    if (!file.isReadable()) {
        return QStringLiteral("The application “%1” cannot be read.").arg(path);
    }
    const Owned<GDesktopAppInfo> entry(
        g_desktop_app_info_new_from_filename(QFile::encodeName(path).constData()));
    if (!entry) {
        return QStringLiteral("“%1” is not an application, or its program is not installed.")
            .arg(path);
    }
    const QString error = launch(entry.get(), nullptr, notices, cancellable);
    const bool wantsTerminal =
        g_desktop_app_info_get_boolean(entry.get(), G_KEY_FILE_DESKTOP_KEY_TERMINAL) != FALSE;
    if (error.isEmpty() || !wantsTerminal) {
        return error;
    }
    const auto inside = inSystemTerminal(path);
    return inside ? launch(inside.get(), nullptr, notices, cancellable) : error;
}

QString openWith(const QString &desktopId, const QUrl &url, const StartNotices &notices,
                 GCancellable *cancellable) {
    const Owned<GDesktopAppInfo> entry(g_desktop_app_info_new(desktopId.toUtf8().constData()));
    if (!entry) {
        return QStringLiteral("The application is no longer installed.");
    }
    QByteArray uri = url.toEncoded(QUrl::FullyEncoded);
    GList uris{.data = uri.data(), .next = nullptr, .prev = nullptr};
    return launch(entry.get(), &uris, notices, cancellable);
}

QString url(const QUrl &url, const StartNotices &notices, GCancellable *cancellable) {
    if (!url.isValid() || url.isRelative()) {
        return QStringLiteral("“%1” is not a link.").arg(url.toDisplayString());
    }
    if (url.isLocalFile() && !QFileInfo::exists(url.toLocalFile())) {
        return QStringLiteral("There is nothing at “%1”.").arg(url.toLocalFile());
    }
    const QByteArray uri = url.toEncoded(QUrl::FullyEncoded);
    Outcome outcome{.finish = finishUrl, .error = {}};
    return waitFor(outcome, notices, [&](GAppLaunchContext *context) {
        g_app_info_launch_default_for_uri_async(uri.constData(), context, cancellable, onDone,
                                                &outcome);
    });
}

} // namespace perchly::giolaunch
