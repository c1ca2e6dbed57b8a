#include "FakeHosts.h"
#include "Productivity.h"
#include "RecordingShell.h"
#include "ShelfExtras.h"
#include "ShelfLibrary.h"
#include "ShelfModel.h"
#include "TestFiles.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

using namespace std::chrono_literals;

namespace {

using Kind = PowerSource::Kind;

struct DeviceFixture {
    FakeHosts fake;
    RecordingShell shell;
    ShelfLibrary library{fake.preferences, fake.catalog, fake.openPanel};
    ShelfModel model{fake.clock, fake.preferences, fake.alertSound};
    Productivity tools{fake.hosts, library, model};
    ShelfExtras extras{fake.hosts, library, tools, shell};
};

} // namespace

class DeviceTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theBatteryIsReadAgain() {
        DeviceFixture fixture;
        const Battery &battery = *fixture.extras.battery();
        QCOMPARE(battery.line(), QStringLiteral("Checking battery…"));
        QTRY_COMPARE(battery.line(), QStringLiteral("No internal battery"));
        fixture.fake.power.reading = std::nullopt;
        fixture.fake.clock.advance(30s);
        QTRY_COMPARE(battery.line(), QStringLiteral("Battery unavailable"));
        const auto show = [&fixture](const QList<PowerSource> &sources) {
            fixture.fake.power.reading = sources;
            Q_EMIT fixture.fake.power.changed();
        };
        show({{Kind::InternalBattery, 5, 0}, {Kind::Other, 1, 1}, {Kind::InternalBattery, 4, 7}});
        QTRY_COMPARE(battery.line(), QStringLiteral("57% · On battery"));
        show({{Kind::InternalBattery, 100, 100, true, true}});
        QTRY_COMPARE(battery.line(), QStringLiteral("100% · Charging"));
        show({{Kind::InternalBattery, INT32_MAX, INT32_MAX, false, true}});
        QTRY_COMPARE(battery.line(), QStringLiteral("100% · Plugged in"));
    }

    void captures_data() {
        QTest::addColumn<bool>("picture");
        QTest::addColumn<int>("status");
        QTest::addColumn<bool>("fails");
        QTest::newRow("with a picture, whatever the status") << true << 1 << false;
        QTest::newRow("cancelled") << false << 1 << true;
        QTest::newRow("not started") << false << -1 << true;
    }

    void captures() {
        QFETCH(bool, picture);
        QFETCH(int, status);
        QFETCH(bool, fails);
        DeviceFixture fixture;
        Capture &capture = *fixture.extras.capture();
        capture.start();
        capture.start();
        QVERIFY(capture.active());
        QCOMPARE(fixture.shell.calls, QStringList(QStringLiteral("clearScreen")));
        fixture.fake.clock.advance(1s);
        QCOMPARE(fixture.fake.screenCapture.paths.size(), 1);
        const QString path = fixture.fake.screenCapture.paths.first();
        if (picture) {
            writeFile(path, "picture");
        }
        fixture.fake.screenCapture.finish(status);
        QFile::remove(path);
        QVERIFY(!capture.active());
        QCOMPARE(!capture.error().isEmpty(), fails);
        QCOMPARE(fixture.extras.section(),
                 picture ? QStringLiteral("Files") : QStringLiteral("Search"));
        QCOMPARE(fixture.tools.held()->urls(),
                 picture ? QList{QUrl::fromLocalFile(path)} : QList<QUrl>());
        QCOMPARE(fixture.shell.calls.last(), QStringLiteral("showTools"));
    }

    void aPreviewIsPartOfItsList() {
        DeviceFixture fixture;
        const QList<QUrl> held{QUrl(QStringLiteral("file:///a")),
                               QUrl(QStringLiteral("file:///b"))};
        fixture.extras.togglePreview(held.last(), held);
        QCOMPARE(fixture.fake.quickLook.items, held);
        QCOMPARE(fixture.fake.quickLook.index, 1);
    }
};

static const RegisteredTest<DeviceTest> registeredDeviceTest;

} // namespace perchly

#include "DeviceTest.moc"
