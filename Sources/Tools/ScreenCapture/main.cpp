#include "CaptureFile.h"
#include "PointerGrab.h"
#include "RegionOverlay.h"
#include "RootPicture.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <xcb/xcb.h>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

constexpr int failure = 1;
constexpr int usage = 64;
constexpr auto patience = 1s;

int fail(const char *what) {
    std::fprintf(stderr, "perchly-screencapture: %s\n", what);
    return failure;
}

/// How large things are drawn. The toolkit itself works in pixels here: one space of coordinates
/// over all displays, and the picture is what the displays show.
double takeScaleFromToolkit() {
    const double factor = qEnvironmentVariable("QT_SCALE_FACTOR").toDouble();
    for (const char *name : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS",
                             "QT_AUTO_SCREEN_SCALE_FACTOR", "QT_ENABLE_HIGHDPI_SCALING"}) {
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

int choose(QGuiApplication &application, PointerGrab &grab, const QImage &picture, double scale,
           const QString &path) {
    RegionOverlay overlay(picture, displays(), std::clamp(scale, 1.0, 4.0));
    overlay.setPointer(grab.position());
    overlay.show();

    std::optional<QPoint> start;
    const auto finish = [&](int status) {
        grab.disconnect(&overlay); // what the person did afterwards does not count
        QGuiApplication::exit(status);
    };
    const auto regionTo = [&](const QPoint &pixel) {
        const QPoint corner(std::min(start->x(), pixel.x()), std::min(start->y(), pixel.y()));
        const QPoint other(std::max(start->x(), pixel.x()), std::max(start->y(), pixel.y()));
        return QRect(corner, other).intersected(picture.rect());
    };
    QObject::connect(&grab, &PointerGrab::pressed, &overlay, [&](const QPoint &pixel) {
        start = pixel;
        overlay.setPointer(pixel);
    });
    QObject::connect(&grab, &PointerGrab::moved, &overlay, [&](const QPoint &pixel) {
        overlay.setPointer(pixel);
        if (start && *start != pixel) {
            overlay.setRegion(regionTo(pixel));
        }
    });
    QObject::connect(&grab, &PointerGrab::released, &overlay, [&](const QPoint &pixel) {
        if (!start) {
            return;
        }
        if (*start == pixel) { // a click chooses nothing
            start.reset();
            overlay.setRegion(std::nullopt);
            return;
        }
        const QString error = writeCapture(picture.copy(regionTo(pixel)), path);
        finish(error.isEmpty() ? 0 : fail(qPrintable(error)));
    });
    const auto giveUp = [&] { finish(failure); };
    QObject::connect(&grab, &PointerGrab::cancelled, &overlay, giveUp);
    QObject::connect(&grab, &PointerGrab::lost, &overlay, giveUp);
    return application.exec();
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 4 || qstrcmp(argv[1], "-i") != 0 || qstrcmp(argv[2], "-x") != 0) {
        std::fputs("usage: perchly-screencapture -i -x FILE\n", stderr);
        return usage;
    }
    const QString path = QString::fromLocal8Bit(argv[3]);
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
        xcb_connect(nullptr, nullptr), xcb_disconnect);
    if (xcb_connection_has_error(connection.get()) != 0) {
        return fail("there is no X display to capture");
    }
    const double factor = takeScaleFromToolkit();
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("QT_QPA_PLATFORMTHEME", "generic"); // the desktop's own would load a second toolkit
    QGuiApplication application(argc, argv);

    PointerGrab grab(connection.get());
    if (!grab.take(patience)) {
        return fail("another program holds the pointer or the keyboard");
    }
    const QImage picture = takeRootPicture(connection.get());
    if (picture.isNull()) {
        return fail("the display does not show what is on it");
    }
    return choose(application, grab, picture, factor * displayScale(), path);
}
