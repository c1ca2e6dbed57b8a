#include "SoundMeter.h"
#include "SoundSystem.h"

#include <QTest>

using namespace perchly;

class RouteTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void levelsAreExactAndTheOwnOutputComesBack_data();
    void levelsAreExactAndTheOwnOutputComesBack();
};

void RouteTest::levelsAreExactAndTheOwnOutputComesBack_data() {
    QTest::addColumn<QString>("program");
    QTest::newRow("a native client") << QStringLiteral("pw-cat");
    QTest::newRow("a PulseAudio client") << QStringLiteral("paplay");
}

void RouteTest::levelsAreExactAndTheOwnOutputComesBack() {
    QFETCH(QString, program);
    SoundSystem sound;
    SoundMeter meter(QStringLiteral("first"));
    const Player player(program);
    QVERIFY(meter.comesTo(toneLevel));
    meter.clear();
    QElapsedTimer time;
    time.start();
    const auto route = sound.route(player);
    qInfo("enabled in %lld ms", time.elapsed());
    QTest::qWait(500);
    qInfo("silence %zu", meter.longestSilence());
    QVERIFY(meter.comesTo(toneLevel));
    perchly_ring_gain(route->ring(), 0.5F);
    QVERIFY(meter.comesTo(toneLevel / 2));
    perchly_ring_gain(route->ring(), 0);
    QVERIFY(meter.comesTo(0));
    perchly_ring_gain(route->ring(), 1);
    QVERIFY(meter.comesTo(toneLevel));
    meter.clear();
    time.restart();
    route->stop();
    qInfo("released in %lld ms", time.elapsed());
    QTest::qWait(500);
    qInfo("silence %zu", meter.longestSilence());
    QVERIFY(meter.comesTo(toneLevel));
    QTRY_COMPARE(tracesOfRoutes(), QStringList());
}

QTEST_GUILESS_MAIN(RouteTest)
#include "RouteTest.moc"
