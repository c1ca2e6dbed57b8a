#include "BusPowerSources.h"
#include "KernelPower.h"
#include "TestFiles.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <limits>
#include <memory>

using namespace perchly;

namespace {

const QString service = QStringLiteral("org.freedesktop.UPower");
const QString device = QStringLiteral("/org/freedesktop/UPower/devices/DisplayDevice");

QVariantMap battery(double percentage, uint state) {
    return {{QStringLiteral("Type"), 2U},
            {QStringLiteral("IsPresent"), true},
            {QStringLiteral("Percentage"), percentage},
            {QStringLiteral("State"), state},
            {QStringLiteral("Model"), QStringLiteral("X")}};
}

/// A power service on a connection of its own.
class PowerService : public QDBusVirtualObject {
    Q_OBJECT
public:
    PowerService(const QVariantMap &display, const QVariant &onBattery)
        : m_bus(QDBusConnection::connectToBus(QDBusConnection::SystemBus, service))
        , m_display(display)
        , m_onBattery(onBattery) {
        m_bus.registerVirtualObject(QStringLiteral("/org/freedesktop/UPower"), this,
                                    QDBusConnection::SubPath);
        m_bus.registerService(service);
    }
    ~PowerService() override { QDBusConnection::disconnectFromBus(service); }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override {
        ++questions;
        const QVariantMap answer =
            message.path() == device
                ? m_display
                : QVariantMap{{QStringLiteral("DaemonVersion"), QStringLiteral("1")},
                              {QStringLiteral("OnBattery"), m_onBattery}};
        return bus.send(message.createReply(answer));
    }

    void change(const QVariantMap &display) {
        m_display = display;
        auto signal =
            QDBusMessage::createSignal(device, QStringLiteral("org.freedesktop.DBus.Properties"),
                                       QStringLiteral("PropertiesChanged"));
        signal << QStringLiteral("org.freedesktop.UPower.Device") << QVariantMap() << QStringList();
        m_bus.send(signal);
    }

    int questions = 0;

private:
    QDBusConnection m_bus;
    QVariantMap m_display;
    QVariant m_onBattery;
};

/// "80/100 charging mains" for each battery, "other" for each other source.
QString described(const PowerSources::Reading &reading) {
    if (!reading) {
        return QStringLiteral("unavailable");
    }
    QStringList texts;
    for (const PowerSource &source : *reading) {
        if (source.kind == PowerSource::Kind::Other) {
            texts.append(QStringLiteral("other"));
            continue;
        }
        QString text = QStringLiteral("%1/%2")
                           .arg(source.currentCapacity.value_or(-1))
                           .arg(source.maxCapacity.value_or(-1));
        text += source.isCharging ? QStringLiteral(" charging") : QString();
        text += source.isOnMains ? QStringLiteral(" mains") : QString();
        texts.append(text);
    }
    return texts.join(QStringLiteral(", "));
}

QString readNow(PowerSources &sources) {
    std::optional<QString> text;
    sources.read([&](const PowerSources::Reading &reading) { text = described(reading); });
    return QTest::qWaitFor([&] { return text.has_value(); }) ? *text : QStringLiteral("no answer");
}

} // namespace

class BusPowerSourcesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void tellsWhatTheServiceSays_data() {
        QTest::addColumn<QVariantMap>("display");
        QTest::addColumn<QVariant>("onBattery");
        QTest::addColumn<QString>("expected");
        const double nan = std::numeric_limits<double>::quiet_NaN();
        const auto row = [](const char *name, const QVariantMap &display, const QVariant &onBattery,
                            const char *expected) {
            QTest::newRow(name) << display << onBattery << QString::fromLatin1(expected);
        };
        row("charging", battery(57, 1), false, "57/100 charging mains");
        row("discharging", battery(57.6, 2), true, "58/100");
        row("full on mains", battery(100, 4), false, "100/100 mains");
        row("waits to charge", battery(80, 5), false, "80/100 mains");
        row("the daemon does not say: by the state", battery(80, 4), QStringLiteral("no"),
            "80/100 mains");
        row("unknown state", battery(80, 4711), true, "80/100");
        row("more than full", battery(1e300, 1), false, "100/100 charging mains");
        row("no number", battery(nan, 2), true, "-1/-1");
        row("no battery", {{QStringLiteral("Type"), 0U}, {QStringLiteral("IsPresent"), false}},
            false, "other");
        row("other types than promised",
            {{QStringLiteral("Type"), QStringLiteral("battery")},
             {QStringLiteral("Percentage"), QVariantList{1, 2}}},
            false, "other");
    }

    void tellsWhatTheServiceSays() {
        QFETCH(QVariantMap, display);
        QFETCH(QVariant, onBattery);
        QFETCH(QString, expected);
        PowerService power(display, onBattery);
        BusPowerSources sources(m_folder->path());
        QTRY_COMPARE(readNow(sources), expected);
    }

    void aReadingIsLookedUpAndChangesAreTold() {
        PowerService power(battery(50, 2), true);
        BusPowerSources sources(m_folder->path());
        QSignalSpy changed(&sources, &PowerSources::changed);
        QTRY_COMPARE(changed.count(), 2); // the device's answer and the daemon's
        QCOMPARE(readNow(sources), QStringLiteral("50/100"));
        const int before = power.questions;
        for (int count = 0; count < 5; ++count) {
            readNow(sources);
        }
        QCOMPARE(power.questions, before);
        changed.clear();
        power.change(battery(49, 2));
        QTRY_COMPARE(changed.count(), 1);
        QCOMPARE(readNow(sources), QStringLiteral("49/100"));
    }

    void theKernelStandsInWhileTheServiceIsAway() {
        writeFile(m_folder->filePath(QStringLiteral("BAT0/type")), "Battery\n");
        writeFile(m_folder->filePath(QStringLiteral("BAT0/capacity")), "33\n");
        BusPowerSources sources(m_folder->path());
        QCOMPARE(readNow(sources), QStringLiteral("33/100"));
        {
            PowerService power(battery(50, 2), true);
            QTRY_COMPARE(readNow(sources), QStringLiteral("50/100"));
        }
        QTRY_COMPARE(readNow(sources), QStringLiteral("33/100"));
    }

    void readsTheKernelsFolder_data() {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const QStringList &files, const char *expected) {
            QTest::newRow(name) << files << QString::fromLatin1(expected);
        };
        const auto list = [](const char *text) {
            return QString::fromLatin1(text).split(QLatin1Char(' '));
        };
        row("nothing that powers it", {}, "");
        row("a battery and mains",
            list("AC/type=Mains AC/online=1 BAT0/type=Battery BAT0/capacity=80 BAT0/status=Full"),
            "other, 80/100 mains");
        row("unplugged",
            list("AC/type=Mains AC/online=0 BAT0/type=Battery BAT0/capacity=80 "
                 "BAT0/status=Discharging"),
            "other, 80/100");
        row("charging", list("B/type=Battery B/capacity=5 B/status=Charging"),
            "5/100 charging mains");
        row("energies only", list("B/type=Battery B/energy_now=4 B/energy_full=7"), "4/7");
        row("charges, and a percentage that cannot be",
            list("B/type=Battery B/capacity=101 B/charge_now=9 B/charge_full=8"), "8/8");
        row("garbage",
            list("B/type=Battery B/capacity=x B/energy_now=-1 B/energy_full=99999999999999999999"),
            "-1/-1");
        row("a mouse, and an empty bay",
            list("M/type=Battery M/scope=Device M/capacity=9 B/type=Battery B/present=0"), "");
    }

    void readsTheKernelsFolder() {
        QFETCH(QStringList, files);
        QFETCH(QString, expected);
        for (const QString &file : files) {
            writeFile(m_folder->filePath(file.section(u'=', 0, 0)),
                      file.section(u'=', 1).toLatin1() + '\n');
        }
        QCOMPARE(described(readKernelPower(m_folder->path())), expected);
        QCOMPARE(described(readKernelPower(QStringLiteral("/nowhere"))),
                 QStringLiteral("unavailable"));
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

int main(int argc, char **argv) {
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS"));
    const QCoreApplication application(argc, argv);
    BusPowerSourcesTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "BusPowerSourcesTest.moc"
