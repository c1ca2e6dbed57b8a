#include "SvgLinks.h"

#include "GioOwned.h"

#include <QIODevice>
#include <QXmlStreamReader>

#include <gio/gio.h>

namespace perchly {

namespace {

constexpr qsizetype maxSvgBytes = 32 << 20;

bool isCompressed(const QByteArray &svg) {
    return svg.startsWith("\x1f\x8b");
}

/// Unchanged if it is damaged or too large.
QByteArray uncompressed(const QByteArray &gzip) {
    const auto converter =
        gio::Owned<GZlibDecompressor>(g_zlib_decompressor_new(G_ZLIB_COMPRESSOR_FORMAT_GZIP));
    QByteArray xml(maxSvgBytes, Qt::Uninitialized);
    gsize read = 0;
    gsize written = 0;
    const auto result = g_converter_convert(G_CONVERTER(converter.get()), gzip.constData(),
                                            gsize(gzip.size()), xml.data(), gsize(xml.size()),
                                            G_CONVERTER_INPUT_AT_END, &read, &written, nullptr);
    xml.truncate(qsizetype(written));
    return result == G_CONVERTER_FINISHED ? xml : gzip;
}

/// Also true for a compressed SVG.
bool namesFiles(const QByteArray &svg) {
    if (isCompressed(svg)) {
        return true;
    }
    QXmlStreamReader xml(svg);
    xml.setNamespaceProcessing(false); // as in Qt's SVG reader
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        if (token == QXmlStreamReader::ProcessingInstruction) { // such as a style sheet
            return true;
        }
        if (token != QXmlStreamReader::StartElement || !xml.name().endsWith(u"image")) {
            continue;
        }
        for (const QXmlStreamAttribute &attribute : xml.attributes()) {
            const QByteArray link = attribute.value().toLatin1();
            const qsizetype data = link.startsWith("data:") ? link.lastIndexOf("base64,") : -1;
            if (attribute.qualifiedName().endsWith(u"href") &&
                (data < 0 || namesFiles(QByteArray::fromBase64(link.mid(data + 7))))) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

bool svgMayNameFiles(QIODevice &svg) {
    svg.seek(0);
    const QByteArray bytes = svg.read(maxSvgBytes);
    const bool result =
        !svg.atEnd() || namesFiles(isCompressed(bytes) ? uncompressed(bytes) : bytes);
    svg.seek(0);
    return result;
}

} // namespace perchly
