#include "BusPlayerNotifications.h"
#include "PlayerProcess.h"
#include "TestFiles.h"

#include <QSignalSpy>

#include <csignal>

using namespace perchly;

namespace {

void call(const QString &name, const QString &destination) {
    QProcess::execute(QStringLiteral("dbus-send"),
                      {QStringLiteral("--session"), QStringLiteral("--print-reply"),
                       QStringLiteral("--dest=org.mpris.MediaPlayer2.") + destination,
                       QStringLiteral("/org/mpris/MediaPlayer2"),
                       QStringLiteral("org.mpris.MediaPlayer2.Player.") + name});
}

/// Until it is heard of: what it tells before its announcements are waited for is lost.
void callUntil(const QString &name, const QString &destination, const QSignalSpy &heard) {
    for (int attempt = 0; heard.isEmpty() && attempt < 10; ++attempt) {
        call(name, destination);
        (void)QTest::qWaitFor([&heard] { return !heard.isEmpty(); }, 500);
    }
}

QVariantMap information(const char *title, const char *state) {
    return {{QStringLiteral("Name"), QString::fromUtf8(title)},
            {QStringLiteral("Artist"), QStringLiteral("Singer")},
            {QStringLiteral("Player State"), QString::fromUtf8(state)}};
}

} // namespace

class PlayerNotificationsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// Nothing is installed but what the test installs.
    void initTestCase() { qputenv("XDG_DATA_DIRS", "/nowhere/at/all"); }

    void knowsWhetherAnyPlayerRuns() {
        BusPlayerNotifications notifications;
        const QSignalSpy changed(&notifications, &PlayerNotifications::presenceChanged);
        QCOMPARE(notifications.presence(), PlayerPresence::Unknown);
        notifications.start();
        QTRY_COMPARE(notifications.presence(), PlayerPresence::None);
        {
            const PlayerProcess repeater("playerctld");
            QTest::qWait(50);
            QCOMPARE(notifications.presence(), PlayerPresence::None);
            const PlayerProcess player("scripted");
            QTRY_COMPARE(notifications.presence(), PlayerPresence::Some);
            BusPlayerNotifications later;
            const QSignalSpy laterChanged(&later, &PlayerNotifications::presenceChanged);
            later.start();
            QTRY_COMPARE(later.presence(), PlayerPresence::Some);
            QCOMPARE(laterChanged.count(), 1); // it was never thought that there was none
        }
        QTRY_COMPARE(notifications.presence(), PlayerPresence::None);
        QCOMPARE(changed.count(), 3);
    }

    void passesOnWhatSpotifySays() {
        BusPlayerNotifications notifications;
        QSignalSpy received(&notifications, &PlayerNotifications::received);
        notifications.start();
        const PlayerProcess player("spotify", R"({"flurry": 40})"); // one announcement for all
        const PlayerProcess another("another");
        call(QStringLiteral("Pause"), QStringLiteral("another"));
        QTest::qWait(200);
        QVERIFY(received.isEmpty()); // it has not announced anything, and others do not count
        callUntil(QStringLiteral("Pause"), QStringLiteral("spotify"), received);
        QCOMPARE(received.size(), 1);
        QCOMPARE(received.first().at(0).toString(),
                 QStringLiteral("com.spotify.client.PlaybackStateChanged"));
        QCOMPARE(received.first().at(1).toMap(), information("Song", "Paused"));
        call(QStringLiteral("Next"), QStringLiteral("spotify"));
        QTRY_COMPARE(received.size(), 2);
        QTest::qWait(200);
        QCOMPARE(received.size(), 2);
        QCOMPARE(received.last().at(1).toMap(), information("Next", "Paused"));
    }

    void passesOnWhatTheMusicApplicationSays() {
        installApplication(QStringLiteral("org.example.Tunes"),
                           "Exec=true\nMimeType=audio/mpeg;\nCategories=AudioVideo;Audio;Player;");
        BusPlayerNotifications notifications;
        QSignalSpy received(&notifications, &PlayerNotifications::received);
        const PlayerProcess player("whatever", R"({"entry": "org.example.Tunes"})");
        notifications.start();
        callUntil(QStringLiteral("Next"), QStringLiteral("whatever"), received);
        QCOMPARE(received.size(), 1);
        QCOMPARE(received.first().at(0).toString(), QStringLiteral("com.apple.Music.playerInfo"));
        QCOMPARE(received.first().at(1).toMap(), information("Next", "Playing"));
    }

    void knowsNothingWithoutABus() {
        const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/at/all");
        const auto restore = qScopeGuard([&] { qputenv("DBUS_SESSION_BUS_ADDRESS", address); });
        BusPlayerNotifications notifications;
        notifications.start();
        QTest::qWait(50);
        QCOMPARE(notifications.presence(), PlayerPresence::Unknown);

        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        const auto bus = pid_t(qEnvironmentVariableIntValue("PERCHLY_TEST_BUS_PID"));
        kill(bus, SIGSTOP);
        const auto thaw = qScopeGuard([bus] { kill(bus, SIGCONT); });
        BusPlayerNotifications frozen;
        frozen.start(); // neither blocks nor knows anything
        QTest::qWait(50);
        QCOMPARE(frozen.presence(), PlayerPresence::Unknown);
        kill(bus, SIGCONT);
        QTRY_COMPARE(frozen.presence(), PlayerPresence::None);
    }
};

QTEST_GUILESS_MAIN(PlayerNotificationsTest)
#include "PlayerNotificationsTest.moc"
