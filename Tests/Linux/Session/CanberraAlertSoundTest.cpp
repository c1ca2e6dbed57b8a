#include "CanberraAlertSound.h"

#include <QTest>
#include <QThread>

using namespace perchly;

class CanberraAlertSoundTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// A driver that does not exist: no sound can be played, whatever the machine has.
    void initTestCase() { qputenv("CANBERRA_DRIVER", "none-such"); }

    void ringsTheBellInsteadWithoutASoundServer() {
        int bells = 0;
        CanberraAlertSound sound([&] {
            QCOMPARE(QThread::currentThread(), thread());
            ++bells;
        });
        sound.play();
        QCOMPARE(bells, 0);
        QTRY_COMPARE(bells, 1);
        sound.play();
        QTRY_COMPARE(bells, 2);
    }

    void mayBeDestroyedWhileItPlays() {
        int bells = 0;
        std::make_unique<CanberraAlertSound>([&] { ++bells; })->play();
        QTest::qWait(50);
        QCOMPARE(bells, 0);
    }
};

QTEST_GUILESS_MAIN(CanberraAlertSoundTest)
#include "CanberraAlertSoundTest.moc"
