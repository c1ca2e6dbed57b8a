#include "ConnectWithTimeout.h"
#include "InputGrab.h"
#include "LayerSurface.h"
#include "OutputPicture.h"
#include "ProcessLimits.h"
#include "RegionOverlay.h"
#include "RootPicture.h"
#include "UserLanguage.h"
#include "WaylandConnection.h"
#include "WaylandOffer.h"

#include <QGuiApplication>
#include <QImageWriter>
#include <QLoggingCategory>
#include <QSaveFile>
#include <QScreen>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <memory>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

using namespace perchly;

namespace {

constexpr int failure = 1;
constexpr int usage = 64;
constexpr unsigned maxMegabytes = 2048; // three displays of 8K, four times in memory
constexpr unsigned startTimeout = 10;   // seconds until the overlay shows
constexpr std::chrono::seconds compositorTimeout{1};
constexpr int fastCompression = 85; // Qt's value for zlib's lowest level

int fail(const char *what) {
    std::fprintf(stderr, "perchly-screencapture: %s\n", what);
    return failure;
}

/// Returns the user's scale, for lines and text, and turns Qt's scaling off, so that all displays
/// share one coordinate system in pixels.
double takeScaleFromQt() {
    const double factor = qEnvironmentVariable("QT_SCALE_FACTOR").toDouble();
    for (const char *name :
         {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_AUTO_SCREEN_SCALE_FACTOR"}) {
        qunsetenv(name);
    }
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    return factor > 0 ? factor : 1;
}

double displayScale() {
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen != nullptr ? std::max(1.0, screen->logicalDotsPerInch() / 96) : 1;
}

QList<QRect> displays() {
    QList<QRect> frames;
    for (const QScreen *screen : QGuiApplication::screens()) {
        frames.append(screen->geometry());
    }
    return frames;
}

/// Writes a PNG that only its owner can read, completely or not at all. Returns any error.
QString write(const QImage &picture, const QString &path) {
    umask(S_IRWXG | S_IRWXO);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return file.errorString();
    }
    QImageWriter writer(&file, "png");
    writer.setQuality(fastCompression);
    if (!writer.write(picture)) {
        return writer.errorString();
    }
    return file.commit() ? QString() : file.errorString();
}

void finish(int status) {
    static bool isFirst = true; // ignore later events
    if (std::exchange(isFirst, false)) {
        QGuiApplication::exit(status);
    }
}

void follow(const RegionOverlay &overlay, const QImage &picture, const QString &path) {
    QObject::connect(&overlay, &RegionOverlay::selected, [picture, path](const QRect &region) {
        const QString error = write(picture.copy(region), path);
        finish(error.isEmpty() ? EXIT_SUCCESS : fail(qPrintable(error)));
    });
    QObject::connect(&overlay, &RegionOverlay::cancelled, [] { finish(EXIT_SUCCESS); });
}

int run() {
    confineProcess();
    alarm(0);
    return QGuiApplication::exec();
}

/// One overlay over all displays.
int captureOnX(xcb_connection_t *connection, double scale, const QString &path) {
    const QImage picture = takeRootPicture(connection);
    if (picture.isNull()) {
        return fail("the display's contents cannot be read");
    }
    RegionOverlay overlay(picture, displays(), std::clamp(scale, 1.0, 4.0));
    follow(overlay, picture, path);
    const InputGrab grab(overlay);
    QObject::connect(&grab, &InputGrab::screenSaverStarted, &overlay, &RegionOverlay::cancelled);
    QObject::connect(&grab, &InputGrab::failed,
                     [] { finish(fail("another program holds the keyboard")); });
    overlay.show();
    return run();
}

/// An overlay over each display.
int captureOnWayland(const QString &path) {
    struct Overlay {
        Overlay(WaylandConnection &connection, const QImage &picture, double scale)
            : window(picture, {picture.rect()}, scale)
            , role(connection, window, "perchly-capture", LayerSurface::Layer::Overlay) {}

        RegionOverlay window;
        LayerSurface role;
    };
    WaylandConnection connection;
    std::vector<std::unique_ptr<Overlay>> overlays;
    for (QScreen *screen : QGuiApplication::screens()) {
        const QImage picture = takeOutputPicture(connection, *screen);
        if (picture.isNull()) {
            return fail("the display's contents cannot be read");
        }
        const QRect whole(QPoint(), screen->size());
        const double scale = double(picture.width()) / whole.width();
        auto overlay = std::make_unique<Overlay>(connection, picture, scale);
        follow(overlay->window, picture, path);
        overlay->role.setKeyboard(LayerSurface::Keyboard::Exclusive);
        overlay->role.place(*screen, whole, LayerSurface::Origin::Display);
        QObject::connect(&overlay->role, &LayerSurface::closed, [] { finish(EXIT_SUCCESS); });
        overlay->window.show();
        overlays.push_back(std::move(overlay));
    }
    return run();
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 4 || qstrcmp(argv[1], "-i") != 0 || qstrcmp(argv[2], "-x") != 0) {
        std::fputs("usage: perchly-screencapture -i -x FILE\n", stderr);
        return usage;
    }
    limitResources(maxMegabytes);
    alarm(startTimeout);
    prctl(PR_SET_PDEATHSIG, SIGKILL); // the overlay grabs pointer and keyboard
    const QString path = QString::fromLocal8Bit(argv[3]);
    qputenv("QT_QPA_PLATFORMTHEME", "generic"); // the desktop's platform theme would load GTK
    if (qgetenv("PERCHLY_WINDOW_SYSTEM") != "x11" &&
        compositorOffers(screenCopyInterface, compositorTimeout)) {
        qputenv("QT_QPA_PLATFORM", "wayland");
        qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
        qputenv("QT_WAYLAND_CLIENT_BUFFER_INTEGRATION", "none"); // OpenGL takes too much memory
        QLoggingCategory::setFilterRules(QStringLiteral("qt.qpa.wayland.warning=false"));
        const QGuiApplication application(argc, argv);
        loadUserLanguage();
        return captureOnWayland(path);
    }
    const XConnectionPointer connection = connectWithTimeout();
    if (!connection) {
        return fail("there is no X display to capture");
    }
    const double factor = takeScaleFromQt();
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    loadUserLanguage();
    return captureOnX(connection.get(), factor * displayScale(), path);
}
