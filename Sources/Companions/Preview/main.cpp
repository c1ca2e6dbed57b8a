#include "PreviewWindow.h"
#include "ProcessLimits.h"
#include "RequestReader.h"
#include "UserLanguage.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QStandardPaths>
#include <QTimer>

#include <cstdlib>
#include <malloc.h>
#include <thread>
#include <unistd.h>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

constexpr unsigned maxMegabytes = 1536;
constexpr auto idleTimeout = 20s; ///< so that the next preview starts at once
constexpr unsigned maxHangSeconds = 60;

/// Kills the process when a file blocks the main thread for long.
void watchForHangs(QTimer &heartbeat) {
    const auto beat = [] { alarm(maxHangSeconds); };
    QObject::connect(&heartbeat, &QTimer::timeout, beat);
    heartbeat.start(std::chrono::seconds(maxHangSeconds) / 3);
    beat();
}

} // namespace

int main(int argc, char **argv) {
    limitResources(maxMegabytes);
    mallopt(M_ARENA_MAX, 2); // each arena reserves address space, and decoders have many threads
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "xcb");
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORMTHEME")) {
        qputenv("QT_QPA_PLATFORMTHEME", "generic"); // the desktop's platform theme would load GTK
    }
    // GStreamer scans its plug-ins without running a program, and follows no manifest.
    // Its registry of them is not shared with other programs, which know more plug-ins.
    qputenv("GST_REGISTRY_FORK", "no");
    qputenv("GST_REGISTRY", QFile::encodeName(QStandardPaths::writableLocation(
                                                  QStandardPaths::GenericCacheLocation) +
                                              QStringLiteral("/perchly/gstreamer.bin")));
    qputenv("GST_PLUGIN_FEATURE_RANK",
            "hlsdemux:0,hlsdemux2:0,dashdemux:0,dashdemux2:0,mssdemux:0,mssdemux2:0,sdpdemux:0");
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("perchly-preview"));
    QApplication::setDesktopFileName(QStringLiteral("org.perchly.Perchly"));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.perchly.Perchly")));
    QApplication::setQuitOnLastWindowClosed(false);

    loadUserLanguage();
    QTimer heartbeat;
    watchForHangs(heartbeat);
    PreviewWindow window;
    confineProcess();
    QTimer idle;
    idle.setSingleShot(true);
    idle.setInterval(idleTimeout);
    QObject::connect(&idle, &QTimer::timeout, [&window] {
        if (!window.isVisible()) { // moving to another desktop hides the window for a moment
            QApplication::quit();
        }
    });
    QObject::connect(&window, &PreviewWindow::closed, &idle, qOverload<>(&QTimer::start));
    std::thread([&] {
        readRequests([&](const PreviewRequest &request) {
            QMetaObject::invokeMethod(&window, [&window, &idle, request] {
                idle.stop();
                window.handle(request);
            });
        });
        QMetaObject::invokeMethod(&application, &QCoreApplication::quit, Qt::QueuedConnection);
    }).detach();
    const int status = QApplication::exec();
    std::_Exit(status); // a thread that reads a file may never return
}
