#include "StripPaging.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

class StripPagingTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theLastEntryIsTheEnd_data() {
        QTest::addColumn<int>("entries");
        QTest::addColumn<double>("lowest");
        QTest::newRow("nothing") << 0 << 0.0;
        QTest::newRow("seven fit") << 7 << 0.0;
        QTest::newRow("the eighth does not") << 8 << -70.0;
        QTest::newRow("ten") << 10 << -230.0;
    }

    void theLastEntryIsTheEnd() {
        QFETCH(int, entries);
        QTEST(StripPaging::lowest(entries), "lowest");
    }

    void stepsStopAtBothEnds() {
        QCOMPARE(StripPaging::next(0, 10), -230.0);
        QCOMPARE(StripPaging::previous(-230), 0.0);
        QCOMPARE(StripPaging::next(0, 20), -480.0);
        QCOMPARE(StripPaging::previous(-1030), -550.0);
        QCOMPARE(StripPaging::dragged(-480, -1, 20), -960.0);
        QCOMPARE(StripPaging::dragged(-480, 1, 20), 0.0);
        QCOMPARE(StripPaging::dragged(-480, 0, 20), 0.0);
        QCOMPARE(StripPaging::dragged(0, -300, 7), 0.0);
    }

    void anyEntryCanBeShown() {
        QCOMPARE(StripPaging::showing(0, 0, 20), 0.0);
        QCOMPARE(StripPaging::showing(6, 0, 20), 0.0);
        QCOMPARE(StripPaging::showing(7, 0, 20), -480.0);
        for (qsizetype entry = 0; entry < 20; ++entry) {
            for (const double from : {0.0, -480.0, -1030.0}) {
                const double left =
                    double(entry) * StripPaging::pitch + StripPaging::showing(entry, from, 20);
                QVERIFY(left >= 0);
                QVERIFY(left + StripPaging::entryWidth <= StripPaging::visibleWidth);
            }
        }
    }
};

namespace {

const RegisteredTest<StripPagingTest> registered;

} // namespace

} // namespace perchly

#include "StripPagingTest.moc"
