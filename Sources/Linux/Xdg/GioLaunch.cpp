#include "GioLaunch.h"

#include <QFile>
#include <QFileInfo>

#include <gio/gdesktopappinfo.h>

#include <functional>
#include <memory>

namespace perchly::giolaunch {

namespace {

struct Release {
    void operator()(void *object) const { g_object_unref(object); }
    void operator()(GMainContext *context) const { g_main_context_unref(context); }
};

template <class T>
using Owned = std::unique_ptr<T, Release>;

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

Owned<GAppLaunchContext> launchContext() {
    Owned<GAppLaunchContext> context(g_app_launch_context_new());
    // These were for this program's own start and would give the new one a spent permission.
    g_app_launch_context_unsetenv(context.get(), "DESKTOP_STARTUP_ID");
    g_app_launch_context_unsetenv(context.get(), "XDG_ACTIVATION_TOKEN");
    return context;
}

QString waitFor(Outcome &outcome, const std::function<void(GAppLaunchContext *)> &begin) {
    const Owned<GMainContext> loop(g_main_context_new());
    g_main_context_push_thread_default(loop.get());
    const auto context = launchContext();
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

} // namespace

QString application(const QString &path, GCancellable *cancellable) {
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
    Outcome outcome{.finish = finishApplication, .error = {}};
    return waitFor(outcome, [&](GAppLaunchContext *context) {
        g_app_info_launch_uris_async(G_APP_INFO(entry.get()), nullptr, context, cancellable, onDone,
                                     &outcome);
    });
}

QString url(const QUrl &url, GCancellable *cancellable) {
    if (!url.isValid() || url.isRelative()) {
        return QStringLiteral("“%1” is not a link.").arg(url.toDisplayString());
    }
    if (url.isLocalFile() && !QFileInfo::exists(url.toLocalFile())) {
        return QStringLiteral("There is nothing at “%1”.").arg(url.toLocalFile());
    }
    const QByteArray uri = url.toEncoded(QUrl::FullyEncoded);
    Outcome outcome{.finish = finishUrl, .error = {}};
    return waitFor(outcome, [&](GAppLaunchContext *context) {
        g_app_info_launch_default_for_uri_async(uri.constData(), context, cancellable, onDone,
                                                &outcome);
    });
}

} // namespace perchly::giolaunch
