#include "SymbolTable.h"

#include <QDebug>
#include <QFontDatabase>
#include <QGlyphRun>
#include <QRawFont>
#include <QResource>
#include <QTextLayout>
#include <QTransform>

namespace perchly {

namespace {

constexpr const char *symbols =
    "arrow.down arrow.up backward.end.fill bolt.fill calendar camera checkmark "
    "chevron.left chevron.right chevron.up.chevron.down clock doc doc.on.clipboard "
    "ellipsis eye eye.slash forward.end.fill gear.alt gobackward.15 goforward.15 link "
    "minus minus.circle moon moon.stars.fill music.note pause.fill pin.fill play.fill "
    "play.rectangle.fill plus search sidebar.left sidebar.right slider.horizontal.3 "
    "speaker.2.fill speaker.slash.fill square.arrow.up square.pencil "
    "square.stack.3d.up square.stack.3d.up.fill star star.fill timer tray tray.fill waveform xmark "
    "xmark.circle.fill";

QString loadFont() {
    // Used in place, without copying the font.
    const QResource resource(QStringLiteral(":/perchly/symbols/Framework7Icons-Regular.ttf"));
    Q_ASSERT(resource.compressionAlgorithm() == QResource::NoCompression);
    const int font = QFontDatabase::addApplicationFontFromData(QByteArray::fromRawData(
        reinterpret_cast<const char *>(resource.data()), qsizetype(resource.size())));
    return QFontDatabase::applicationFontFamilies(font).value(0);
}

} // namespace

const QStringList &SymbolTable::names() {
    static const QStringList names = QString::fromLatin1(symbols).split(QLatin1Char(' '));
    return names;
}

QString SymbolTable::glyphText(const QString &name) {
    if (!names().contains(name)) {
        qWarning() << "There is no symbol named" << name;
        return {};
    }
    return QString(name).replace(QLatin1Char('.'), QLatin1Char('_'));
}

QString SymbolTable::family() {
    static const QString loaded = loadFont();
    return loaded;
}

QPainterPath SymbolTable::outline(const QString &name) {
    constexpr int side = 1024;
    QFont font(family());
    font.setPixelSize(side);
    QTextLayout layout(glyphText(name), font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    QPainterPath outline;
    for (const QGlyphRun &run : layout.glyphRuns()) {
        for (const quint32 glyph : run.glyphIndexes()) {
            outline.addPath(run.rawFont().pathForGlyph(glyph));
        }
    }
    outline.setFillRule(Qt::WindingFill);
    const QPointF toCentre = QPointF(side, side) / 2 - outline.boundingRect().center();
    const QTransform toUnit = QTransform::fromTranslate(toCentre.x(), toCentre.y()) *
                              QTransform::fromScale(1.0 / side, 1.0 / side);
    return toUnit.map(outline);
}

} // namespace perchly
