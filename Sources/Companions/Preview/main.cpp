#include "PreviewWindow.h"
#include "RequestReader.h"

#include <QApplication>
#include <QTimer>

#include <cstdlib>
#include <xcb/xcb.h>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

constexpr auto linger = 20s; ///< the next preview is there at once

} // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "xcb");
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORMTHEME")) {
        qputenv("QT_QPA_PLATFORMTHEME", "generic"); // the desktop's own would load a second toolkit
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("perchly-preview"));
    QApplication::setDesktopFileName(QStringLiteral("org.perchly.Perchly"));
    QApplication::setQuitOnLastWindowClosed(false);

    PreviewWindow window;
    RequestReader reader;
    QTimer idle;
    idle.setSingleShot(true);
    idle.setInterval(linger);
    QObject::connect(&idle, &QTimer::timeout, [&window] {
        if (!window.isVisible()) { // moving to another desktop hides it for a moment
            QApplication::quit();
        }
    });
    QObject::connect(&window, &PreviewWindow::closed, &idle, qOverload<>(&QTimer::start));
    QObject::connect(&reader, &RequestReader::requested, &window,
                     [&](const PreviewRequest &request) {
                         idle.stop();
                         window.handle(request);
                     });
    QObject::connect(&reader, &RequestReader::ended, [] { QApplication::quit(); });
    const int status = QApplication::exec();
    std::_Exit(status); // a thread that waits for a file may never come back
}
