#include "FakeHosts.h"
#include "Productivity.h"
#include "ShelfExtras.h"
#include "TestFiles.h"
#include "TestRegistry.h"

#include <QTest>

#include <limits>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

using Kind = PowerSource::Kind;

class DeviceTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void saysOneLineOnTheBattery_data() {
        QTest::addColumn<PowerSources::Reading>("reading");
        QTest::addColumn<QString>("line");
        const auto row = [](const char *name, const PowerSources::Reading &reading,
                            const char *line) {
            QTest::newRow(name) << reading << QString::fromUtf8(line);
        };
        const QList<PowerSource> none;
        constexpr auto most = std::numeric_limits<std::int32_t>::max();
        row("nothing can be found out", std::nullopt, "Battery unavailable");
        row("no source", none, "No internal battery");
        row("no capacity",
            QList<PowerSource>{{Kind::InternalBattery, 5, 0}, {Kind::InternalBattery, {}, 9}},
            "No internal battery");
        row("rounds down, and the first usable one counts",
            QList<PowerSource>{{Kind::Other, 1, 1}, {Kind::InternalBattery, 4, 7}},
            "57% · On battery");
        row("charging wins", QList<PowerSource>{{Kind::InternalBattery, 100, 100, true, true}},
            "100% · Charging");
        row("on mains", QList<PowerSource>{{Kind::InternalBattery, most, most, false, true}},
            "100% · Plugged in");
    }

    void saysOneLineOnTheBattery() {
        QFETCH(PowerSources::Reading, reading);
        QFETCH(QString, line);
        FakeHosts fake;
        fake.power.reading = reading;
        const ShelfExtras extras(fake.hosts);
        QCOMPARE(extras.battery(), QStringLiteral("Checking battery…"));
        QTRY_COMPARE(extras.battery(), line);
    }

    void theLineIsReadAgain() {
        FakeHosts fake;
        const ShelfExtras extras(fake.hosts);
        QTRY_COMPARE(extras.battery(), QStringLiteral("No internal battery"));
        fake.power.reading = std::nullopt;
        fake.clock.advance(30s);
        QTRY_COMPARE(extras.battery(), QStringLiteral("Battery unavailable"));
        fake.power.reading = QList<PowerSource>{{Kind::InternalBattery, 1, 2}};
        Q_EMIT fake.power.changed();
        QTRY_COMPARE(extras.battery(), QStringLiteral("50% · On battery"));
        QCOMPARE(fake.power.readings, 3);
    }

    void aCaptureEnds_data() {
        QTest::addColumn<bool>("picture");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("section");
        QTest::addColumn<bool>("fails");
        QTest::newRow("with a picture") << true << 0 << QStringLiteral("Files") << false;
        QTest::newRow("with a picture in spite of its status")
            << true << 1 << QStringLiteral("Files") << false;
        QTest::newRow("given up") << false << 1 << QStringLiteral("Search") << true;
        QTest::newRow("not started") << false << -1 << QStringLiteral("Search") << true;
        QTest::newRow("with nothing") << false << 0 << QStringLiteral("Search") << false;
    }

    void aCaptureEnds() {
        QFETCH(bool, picture);
        QFETCH(int, status);
        QFETCH(QString, section);
        QFETCH(bool, fails);
        FakeHosts fake;
        Productivity tools(fake.hosts);
        ShelfExtras extras(fake.hosts);
        extras.screenshot(&tools);
        extras.screenshot(&tools);
        QVERIFY(extras.capturing());
        fake.clock.advance(1s);
        QCOMPARE(fake.screenCapture.paths.size(), 1);
        const QString path = fake.screenCapture.paths.first();
        QVERIFY(QFileInfo(path).fileName().startsWith(QStringLiteral("Perchly-")));
        if (picture) {
            writeFile(path, "picture");
        }
        fake.screenCapture.finish(status);
        QVERIFY(!extras.capturing());
        QCOMPARE(extras.section(), section);
        QCOMPARE(!extras.error().isEmpty(), fails);
        QCOMPARE(tools.held(), picture ? QList{QUrl::fromLocalFile(path)} : QList<QUrl>());
        QFile::remove(path);
        extras.screenshot(&tools);
        QCOMPARE(extras.error(), QString());
    }

    void aPreviewIsOneOfItsList() {
        FakeHosts fake;
        ShelfExtras extras(fake.hosts);
        const QList<QUrl> held{QUrl(QStringLiteral("file:///a")),
                               QUrl(QStringLiteral("file:///b"))};
        extras.preview(held.last(), held);
        QCOMPARE(fake.quickLook.items, held);
        QCOMPARE(fake.quickLook.index, 1);
        QCOMPARE(fake.quickLook.manner, QuickLook::Manner::Show);
        extras.togglePreview(QUrl(QStringLiteral("file:///c")), held);
        QCOMPARE(fake.quickLook.items, QList{QUrl(QStringLiteral("file:///c"))});
        QCOMPARE(fake.quickLook.manner, QuickLook::Manner::Toggle);
        QCOMPARE(extras.previewUrl(), QUrl(QStringLiteral("file:///c")));
    }
};

const RegisteredTest<DeviceTest> registeredDeviceTest;

} // namespace

#include "DeviceTest.moc"
