#include "GioLaunch.h"

#include "GioOwned.h"
#include "LaunchContext.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <gio/gdesktopappinfo.h>
#include <syslog.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

namespace perchly::giolaunch {

namespace {

using gio::Owned;

QString textOf(GError *error) {
    const QString text = error != nullptr
                             ? QString::fromUtf8(error->message)
                             : QCoreApplication::translate("Launch", "The launch failed.");
    g_clear_error(&error);
    return text;
}

struct Outcome {
    bool done = false;
    QString error = {};
};

void onDone(GObject *source, GAsyncResult *result, gpointer data) {
    auto *outcome = static_cast<Outcome *>(data);
    GError *error = nullptr;
    if (g_app_info_launch_uris_finish(G_APP_INFO(source), result, &error) == FALSE) {
        outcome->error = textOf(error);
    }
    outcome->done = true;
}

/// Starts the program through the bus daemon, which reports failures.
QString activate(GDesktopAppInfo *entry, GList *uris, GAppLaunchContext *context,
                 GCancellable *cancellable) {
    const Owned<GMainContext> loop(g_main_context_new());
    g_main_context_push_thread_default(loop.get());
    Outcome outcome;
    g_app_info_launch_uris_async(G_APP_INFO(entry), uris, context, cancellable, onDone, &outcome);
    while (!outcome.done) {
        g_main_context_iteration(loop.get(), TRUE);
    }
    g_main_context_pop_thread_default(loop.get());
    return outcome.error;
}

/// Sends the program's output to the journal, as desktop menus do, or to /dev/null.
int outputOf(GDesktopAppInfo *entry) {
    const char *name = g_app_info_get_executable(G_APP_INFO(entry));
    const int journal = sd_journal_stream_fd(name, LOG_INFO, 0);
    return journal >= 0 ? journal : open("/dev/null", O_WRONLY | O_CLOEXEC);
}

QString spawn(GDesktopAppInfo *entry, GList *uris, GAppLaunchContext *context) {
    const int output = outputOf(entry);
    GError *error = nullptr;
    const bool done = g_desktop_app_info_launch_uris_as_manager_with_fds(
                          entry, uris, context, G_SPAWN_SEARCH_PATH, nullptr, nullptr, nullptr,
                          nullptr, -1, output, output, &error) != FALSE;
    close(output);
    return done ? QString() : textOf(error);
}

QString launch(GDesktopAppInfo *entry, GList *uris, const StartNotices &notices,
               GCancellable *cancellable) {
    const LaunchContext context = makeLaunchContext(notices);
    return g_desktop_app_info_get_boolean(entry, "DBusActivatable") != FALSE
               ? activate(entry, uris, context.get(), cancellable)
               : spawn(entry, uris, context.get());
}

QString launchWith(GDesktopAppInfo *entry, const QUrl &url, const StartNotices &notices,
                   GCancellable *cancellable) {
    QByteArray uri = url.toEncoded(QUrl::FullyEncoded);
    GList uris{.data = uri.data(), .next = nullptr, .prev = nullptr};
    return launch(entry, &uris, notices, cancellable);
}

/// The entry with its command line run by x-terminal-emulator; null if it is not installed.
Owned<GDesktopAppInfo> inSystemTerminal(const QString &path) {
    const Owned<GKeyFile> file(g_key_file_new());
    constexpr const char *group = G_KEY_FILE_DESKTOP_GROUP;
    if (g_key_file_load_from_file(file.get(), QFile::encodeName(path).constData(),
                                  G_KEY_FILE_KEEP_TRANSLATIONS, nullptr) == FALSE) {
        return nullptr;
    }
    const Owned<char> command(
        g_key_file_get_string(file.get(), group, G_KEY_FILE_DESKTOP_KEY_EXEC, nullptr));
    g_key_file_set_string(file.get(), group, G_KEY_FILE_DESKTOP_KEY_EXEC,
                          ("x-terminal-emulator -e " + QByteArray(command.get())).constData());
    g_key_file_set_boolean(file.get(), group, G_KEY_FILE_DESKTOP_KEY_TERMINAL, FALSE);
    return Owned<GDesktopAppInfo>(g_desktop_app_info_new_from_keyfile(file.get()));
}

} // namespace

QString application(const QString &path, const StartNotices &notices, GCancellable *cancellable) {
    const QFileInfo file(path);
    if (!file.isAbsolute() || !file.isFile()) {
        return QCoreApplication::translate("Launch", "The application is no longer installed.");
    }
    if (!file.isReadable()) {
        return QCoreApplication::translate("Launch", "Its desktop entry cannot be read.");
    }
    const Owned<GDesktopAppInfo> entry(
        g_desktop_app_info_new_from_filename(QFile::encodeName(path).constData()));
    if (!entry) {
        return QCoreApplication::translate(
            "Launch", "It is not an application, or its program is not installed.");
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
        return QCoreApplication::translate("Launch", "The application is no longer installed.");
    }
    return launchWith(entry.get(), url, notices, cancellable);
}

QString url(const QUrl &url, const StartNotices &notices, GCancellable *cancellable) {
    if (!url.isValid() || url.isRelative()) {
        return QCoreApplication::translate("Launch", "“%1” is not a link.")
            .arg(url.toDisplayString());
    }
    if (url.isLocalFile() && !QFileInfo::exists(url.toLocalFile())) {
        return QCoreApplication::translate("Launch", "There is nothing at “%1”.")
            .arg(url.toLocalFile());
    }
    const Owned<GFile> file(g_file_new_for_uri(url.toEncoded(QUrl::FullyEncoded).constData()));
    const Owned<GAppInfo> program(g_file_query_default_handler(file.get(), cancellable, nullptr));
    if (program) {
        return launchWith(G_DESKTOP_APP_INFO(program.get()), url, notices, cancellable);
    }
    if (!url.isLocalFile()) {
        return QCoreApplication::translate("Launch", "No program is set up for “%1:” links.")
            .arg(url.scheme());
    }
    return QFileInfo(url.toLocalFile()).isDir()
               ? QCoreApplication::translate("Launch", "No file manager is set up.")
               : QCoreApplication::translate("Launch",
                                             "No program is set up for files of this kind.");
}

} // namespace perchly::giolaunch
