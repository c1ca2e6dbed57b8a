#include "SymbolTable.h"

#include <QDebug>
#include <QFontDatabase>
#include <QGlyphRun>
#include <QPainterPathStroker>
#include <QRawFont>
#include <QResource>
#include <QTextLayout>
#include <QTransform>

#include <algorithm>
#include <array>

namespace perchly {

namespace {

struct Entry {
    QLatin1StringView name;
    QLatin1StringView glyph; ///< the ligature; empty for a symbol that is drawn
};

constexpr std::array table{
    Entry{QLatin1StringView("app.dashed"), QLatin1StringView("")},
    Entry{QLatin1StringView("arrow.down"), QLatin1StringView("arrow_down")},
    Entry{QLatin1StringView("arrow.up"), QLatin1StringView("arrow_up")},
    Entry{QLatin1StringView("backward.end.fill"), QLatin1StringView("backward_end_fill")},
    Entry{QLatin1StringView("bolt.fill"), QLatin1StringView("bolt_fill")},
    Entry{QLatin1StringView("calendar"), QLatin1StringView("calendar")},
    Entry{QLatin1StringView("camera"), QLatin1StringView("camera")},
    Entry{QLatin1StringView("checkmark"), QLatin1StringView("checkmark")},
    Entry{QLatin1StringView("chevron.left"), QLatin1StringView("chevron_left")},
    Entry{QLatin1StringView("chevron.right"), QLatin1StringView("chevron_right")},
    Entry{QLatin1StringView("chevron.up.chevron.down"),
          QLatin1StringView("chevron_up_chevron_down")},
    Entry{QLatin1StringView("clock"), QLatin1StringView("clock")},
    Entry{QLatin1StringView("doc"), QLatin1StringView("doc")},
    Entry{QLatin1StringView("doc.on.clipboard"), QLatin1StringView("doc_on_clipboard")},
    Entry{QLatin1StringView("ellipsis"), QLatin1StringView("ellipsis")},
    Entry{QLatin1StringView("eye"), QLatin1StringView("eye")},
    Entry{QLatin1StringView("eye.slash"), QLatin1StringView("eye_slash")},
    Entry{QLatin1StringView("forward.end.fill"), QLatin1StringView("forward_end_fill")},
    Entry{QLatin1StringView("gearshape"), QLatin1StringView("gear_alt")},
    Entry{QLatin1StringView("gobackward.15"), QLatin1StringView("gobackward_15")},
    Entry{QLatin1StringView("goforward.15"), QLatin1StringView("goforward_15")},
    Entry{QLatin1StringView("link"), QLatin1StringView("link")},
    Entry{QLatin1StringView("magnifyingglass"), QLatin1StringView("search")},
    Entry{QLatin1StringView("minus"), QLatin1StringView("minus")},
    Entry{QLatin1StringView("minus.circle"), QLatin1StringView("minus_circle")},
    Entry{QLatin1StringView("moon"), QLatin1StringView("moon")},
    Entry{QLatin1StringView("moon.stars.fill"), QLatin1StringView("moon_stars_fill")},
    Entry{QLatin1StringView("music.note"), QLatin1StringView("music_note")},
    Entry{QLatin1StringView("pause.fill"), QLatin1StringView("pause_fill")},
    Entry{QLatin1StringView("photo"), QLatin1StringView("photo")},
    Entry{QLatin1StringView("pin.fill"), QLatin1StringView("pin_fill")},
    Entry{QLatin1StringView("play.fill"), QLatin1StringView("play_fill")},
    Entry{QLatin1StringView("play.rectangle.fill"), QLatin1StringView("play_rectangle_fill")},
    Entry{QLatin1StringView("plus"), QLatin1StringView("plus")},
    Entry{QLatin1StringView("sidebar.left"), QLatin1StringView("sidebar_left")},
    Entry{QLatin1StringView("sidebar.right"), QLatin1StringView("sidebar_right")},
    Entry{QLatin1StringView("slider.horizontal.3"), QLatin1StringView("slider_horizontal_3")},
    Entry{QLatin1StringView("speaker.slash.fill"), QLatin1StringView("speaker_slash_fill")},
    Entry{QLatin1StringView("speaker.wave.2.fill"), QLatin1StringView("speaker_2_fill")},
    Entry{QLatin1StringView("square.and.arrow.up"), QLatin1StringView("square_arrow_up")},
    Entry{QLatin1StringView("square.and.pencil"), QLatin1StringView("square_pencil")},
    Entry{QLatin1StringView("square.stack.3d.up"), QLatin1StringView("square_stack_3d_up")},
    Entry{QLatin1StringView("square.stack.3d.up.fill"),
          QLatin1StringView("square_stack_3d_up_fill")},
    Entry{QLatin1StringView("star"), QLatin1StringView("star")},
    Entry{QLatin1StringView("star.fill"), QLatin1StringView("star_fill")},
    Entry{QLatin1StringView("timer"), QLatin1StringView("timer")},
    Entry{QLatin1StringView("tray"), QLatin1StringView("tray")},
    Entry{QLatin1StringView("tray.fill"), QLatin1StringView("tray_fill")},
    Entry{QLatin1StringView("waveform"), QLatin1StringView("waveform")},
    Entry{QLatin1StringView("xmark"), QLatin1StringView("xmark")},
    Entry{QLatin1StringView("xmark.circle.fill"), QLatin1StringView("xmark_circle_fill")},
};

QString loadFont() {
    // The font is read where it lies in the program's image, without a copy.
    const QResource resource(QStringLiteral(":/perchly/symbols/Framework7Icons-Regular.ttf"));
    Q_ASSERT(resource.compressionAlgorithm() == QResource::NoCompression);
    const int font = QFontDatabase::addApplicationFontFromData(QByteArray::fromRawData(
        reinterpret_cast<const char *>(resource.data()), qsizetype(resource.size())));
    return QFontDatabase::applicationFontFamilies(font).value(0);
}

/// A rounded square of twelve dashes.
QPainterPath dashedApp() {
    // Dashes are cut to a precision that is meant for lengths in pixels.
    constexpr qreal side = 1000;
    QPainterPath square;
    square.addRoundedRect(QRectF(0.1 * side, 0.1 * side, 0.8 * side, 0.8 * side), 0.18 * side,
                          0.18 * side);
    QPainterPathStroker stroker;
    stroker.setWidth(0.075 * side);
    stroker.setCapStyle(Qt::RoundCap);
    const qreal dash = square.length() / 12 / stroker.width();
    stroker.setDashPattern({dash * 0.55, dash * 0.45});
    stroker.setDashOffset(dash * 0.275);
    return QTransform::fromScale(1 / side, 1 / side).map(stroker.createStroke(square));
}

} // namespace

QList<QString> SymbolTable::names() {
    QList<QString> names;
    std::ranges::transform(table, std::back_inserter(names),
                           [](const Entry &entry) { return QString(entry.name); });
    return names;
}

QString SymbolTable::glyphText(const QString &name) {
    const auto *const found = std::ranges::find(table, name, &Entry::name);
    if (found == table.end()) {
        qWarning() << "There is no symbol named" << name;
        return {};
    }
    return found->glyph;
}

QString SymbolTable::family() {
    static const QString loaded = loadFont();
    return loaded;
}

QPainterPath SymbolTable::outline(const QString &name) {
    if (name == QLatin1StringView("app.dashed")) {
        return dashedApp();
    }
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
