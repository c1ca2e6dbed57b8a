#include "ProcessLimits.h"
#include "SvgLinks.h"

#include <QBuffer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/prctl.h>

using namespace perchly;

namespace {

constexpr int usage = 64;
constexpr unsigned maxMegabytes = 1024;
constexpr unsigned maxSeconds = 25; // less than the host waits
constexpr unsigned maxCpuSeconds = 10;
constexpr int maxPictureMegabytes = 512; // when decoded
constexpr qint64 maxFileBytes = 256 << 20;
constexpr int fastCompression = 85; // Qt's value for zlib's lowest level

QByteArray asPng(const QString &path, int maxSide) {
    QFile file(path);
    // Not a regular file: reading could block forever.
    if (!QFileInfo(path).isFile() || file.size() > maxFileBytes ||
        !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QImageReader::setAllocationLimit(maxPictureMegabytes);
    QImageReader reader(&file);
    reader.setAutoTransform(true);
    const QByteArray format = reader.format();
    if (format.startsWith("svg") && svgMayNameFiles(file)) {
        return {};
    }
    const bool isReduced =
        maxSide > 0 && std::max(reader.size().width(), reader.size().height()) > maxSide;
    if (isReduced) {
        reader.setScaledSize(
            reader.size().scaled(maxSide, maxSide, Qt::KeepAspectRatio).expandedTo({1, 1}));
    }
    const QImage picture = reader.read();
    if (picture.isNull()) {
        return {};
    }
    if (format == "png" && !isReduced) {
        file.seek(0);
        return file.readAll(); // as it is, with its metadata
    }
    QBuffer encoded;
    picture.save(&encoded, "PNG", fastCompression);
    return encoded.data();
}

} // namespace

/// Writes the picture of a file to stdout, as a PNG, reduced to a width and height unless that is
/// 0.
int main(int argc, char **argv) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    limitProcess(maxMegabytes, maxSeconds, maxCpuSeconds);
    if (argc != 3) {
        std::fputs("usage: perchly-picturereader FILE MAX-SIDE\n", stderr);
        return usage;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");    // for the fonts of an SVG
    qputenv("QT_QPA_PLATFORMTHEME", "generic"); // the desktop's platform theme would load GTK
    const QGuiApplication application(argc, argv);
    const QByteArray png = asPng(QFile::decodeName(argv[1]), std::atoi(argv[2]));
    const auto size = std::size_t(png.size());
    const bool isWritten = std::fwrite(png.constData(), 1, size, stdout) == size;
    return size > 0 && isWritten && std::fflush(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
