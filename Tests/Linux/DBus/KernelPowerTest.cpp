#include "KernelPower.h"
#include "TestFiles.h"

#include <QTemporaryDir>

using namespace perchly;

namespace {

/// Describes a battery as "80 charging mains".
QString read(const QString &folder) {
    KernelPower power(folder);
    QString text;
    power.read([&text](const PowerSources::Reading &reading) {
        text = QLatin1StringView(!reading ? "unavailable" : "none");
        if (reading && !reading->isEmpty()) {
            const PowerSource &battery = reading->first();
            text = QString::number(*battery.currentCapacity) +
                   QLatin1StringView(battery.isCharging ? " charging" : "") +
                   QLatin1StringView(battery.isOnMains ? " mains" : "");
        }
    });
    (void)QTest::qWaitFor([&text] { return !text.isEmpty(); });
    return text;
}

} // namespace

class KernelPowerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void readsTheBatteries_data() {
        QTest::addColumn<QString>("files");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const char *files, const char *expected) {
            QTest::newRow(name) << QString::fromLatin1(files) << QString::fromLatin1(expected);
        };
        row("on mains", "A/type=Mains A/online=1 B/type=Battery B/capacity=80 B/status=Unknown",
            "80 mains");
        row("unplugged",
            "A/type=Mains A/online=0 B/type=Battery B/capacity=80 B/status=Discharging", "80");
        row("charging", "B/type=Battery B/capacity=5 B/status=Charging", "5 charging mains");
        row("more than full", "B/type=Battery B/capacity=103 B/status=Full", "100 mains");
        row("two batteries, one of them idle",
            "B/type=Battery B/capacity=100 B/energy_full=10 B/status=Unknown C/type=Battery "
            "C/capacity=20 C/energy_full=30 C/status=Discharging",
            "40");
        row("only a mouse and an empty bay",
            "A/type=Mains A/online=1 M/type=Battery M/scope=Device M/capacity=9 B/type=Battery "
            "B/present=0",
            "none");
    }

    void readsTheBatteries() {
        QFETCH(const QString, files);
        const QTemporaryDir folder;
        for (const QString &file : files.split(u' ', Qt::SkipEmptyParts)) {
            writeFile(folder.filePath(file.section(u'=', 0, 0)), file.section(u'=', 1).toLatin1());
        }
        QTEST(read(folder.path()), "expected");
        QCOMPARE(read(QStringLiteral("/nowhere")), QStringLiteral("unavailable"));
    }
};

QTEST_GUILESS_MAIN(KernelPowerTest)
#include "KernelPowerTest.moc"
