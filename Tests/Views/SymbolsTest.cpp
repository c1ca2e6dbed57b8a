#include "SymbolIcon.h"
#include "SymbolTable.h"

#include <QGlyphRun>
#include <QImage>
#include <QRawFont>
#include <QTest>
#include <QTextLayout>

namespace perchly {

class SymbolsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everySymbolIsDrawn_data() {
        QTest::addColumn<QString>("name");
        for (const QString &name : SymbolTable::names()) {
            QTest::newRow(qPrintable(name)) << name;
        }
    }

    /// A name that the font does not know would be drawn as several letters or as another font's.
    void everySymbolIsDrawn() {
        QFETCH(QString, name);
        if (name != QStringLiteral("app.dashed")) {
            QTextLayout layout(SymbolTable::glyphText(name), QFont(SymbolTable::family()));
            layout.beginLayout();
            layout.createLine();
            layout.endLayout();
            QCOMPARE(layout.glyphRuns().size(), 1);
            const QGlyphRun run = layout.glyphRuns().constFirst();
            QCOMPARE(run.glyphIndexes().size(), 1);
            QVERIFY(run.glyphIndexes().constFirst() != 0);
            QCOMPARE(run.rawFont().familyName(), SymbolTable::family());
        }
        const QIcon icon = platedSymbolIcon(name);
        for (const int side : {16, 22, 64}) {
            const QImage image = icon.pixmap(side, side).toImage();
            QCOMPARE(image.size(), QSize(side, side));
            int inked = 0;
            int plate = 0;
            for (int y = 0; y < side; ++y) {
                for (int x = 0; x < side; ++x) {
                    const QColor pixel = image.pixelColor(x, y);
                    inked += pixel.alpha() > 127 && pixel.lightness() > 127 ? 1 : 0;
                    plate += pixel.alpha() > 127 && pixel.lightness() < 64 ? 1 : 0;
                    const bool rim = x == 0 || y == 0 || x == side - 1 || y == side - 1;
                    QVERIFY2(!rim || pixel.alpha() == 0, "the symbol is cut off");
                }
            }
            QVERIFY2(inked > side * side / 80, "the symbol is hardly visible");
            QVERIFY2(plate > side * side / 4, "the symbol has no ground to show on");
        }
    }

    void anUnknownNameIsReportedAndDrawsNothing() {
        QTest::ignoreMessage(QtWarningMsg, "There is no symbol named \"no.such.symbol\"");
        QVERIFY(SymbolTable::glyphText(QStringLiteral("no.such.symbol")).isEmpty());
        QTest::ignoreMessage(QtWarningMsg, "There is no symbol named \"no.such.symbol\"");
        QVERIFY(platedSymbolIcon(QStringLiteral("no.such.symbol")).isNull());
    }
};

} // namespace perchly

QTEST_MAIN(perchly::SymbolsTest)

#include "SymbolsTest.moc"
