#include "ConnectWithTimeout.h"
#include "ProcessLimits.h"
#include "RegionOverlay.h"
#include "RootPicture.h"
#include "UserLanguage.h"

#include <QGuiApplication>
#include <QImageWriter>
#include <QSaveFile>
#include <QScreen>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace perchly;

namespace {

constexpr int failure = 1;
constexpr int usage = 64;
constexpr unsigned maxMegabytes = 2048; // three displays of 8K, four times in memory
constexpr unsigned startTimeout = 10;   // seconds until the overlay shows
constexpr int fastCompression = 85;     // Qt's value for zlib's lowest level

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

int choose(const QImage &picture, double scale, const QString &path) {
    RegionOverlay overlay(picture, displays(), std::clamp(scale, 1.0, 4.0));
    confineProcess();
    const auto finish = [&](int status) {
        overlay.disconnect(); // ignore later events
        QGuiApplication::exit(status);
    };
    QObject::connect(&overlay, &RegionOverlay::selected, [&](const QRect &region) {
        const QString error = write(picture.copy(region), path);
        finish(error.isEmpty() ? EXIT_SUCCESS : fail(qPrintable(error)));
    });
    QObject::connect(&overlay, &RegionOverlay::cancelled, [&] { finish(EXIT_SUCCESS); });
    QObject::connect(&overlay, &RegionOverlay::failed,
                     [&] { finish(fail("another program holds the keyboard")); });
    overlay.show();
    alarm(0);
    return QGuiApplication::exec();
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
    const XConnectionPointer connection = connectWithTimeout();
    if (!connection) {
        return fail("there is no X display to capture");
    }
    const QString path = QString::fromLocal8Bit(argv[3]);
    const double factor = takeScaleFromQt();
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("QT_QPA_PLATFORMTHEME", "generic"); // the desktop's platform theme would load GTK
    QGuiApplication application(argc, argv);
    loadUserLanguage();

    const QImage picture = takeRootPicture(connection.get());
    if (picture.isNull()) {
        return fail("the display's contents cannot be read");
    }
    return choose(picture, factor * displayScale(), path);
}
