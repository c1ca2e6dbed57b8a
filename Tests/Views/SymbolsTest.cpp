#include "SymbolTable.h"

#include <QGlyphRun>
#include <QRawFont>
#include <QTest>
#include <QTextLayout>

namespace perchly {

class SymbolsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// A name that the font does not know would appear as letters or in another font.
    void everySymbolIsOneGlyph() {
        for (const QString &name : SymbolTable::names()) {
            QTextLayout layout(SymbolTable::glyphText(name), QFont(SymbolTable::family()));
            layout.beginLayout();
            layout.createLine();
            layout.endLayout();
            const QGlyphRun run = layout.glyphRuns().value(0);
            QVERIFY2(run.glyphIndexes().size() == 1 && run.glyphIndexes().constFirst() != 0,
                     qPrintable(name));
            QCOMPARE(run.rawFont().familyName(), SymbolTable::family());
        }
    }
};

} // namespace perchly

QTEST_MAIN(perchly::SymbolsTest)

#include "SymbolsTest.moc"
