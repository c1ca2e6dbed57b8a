#include "BusPlayerNotifications.h"
#include "PlayerProcess.h"
#include "TestFiles.h"

#include <QDBusMessage>
#include <QSignalSpy>

#include <csignal>

using namespace perchly;

namespace {

void call(const QString &player, const QString &method) {
    QDBusConnection::sessionBus().call(
        QDBusMessage::createMethodCall(QStringLiteral("org.mpris.MediaPlayer2.") + player,
                                       QStringLiteral("/org/mpris/MediaPlayer2"),
                                       QStringLiteral("org.mpris.MediaPlayer2.Player"), method));
}

/// Repeats the call until a change is announced, as changes are lost before the player is followed.
QVariantList callUntilHeard(const QString &player, const QString &method, QSignalSpy &heard) {
    for (int attempt = 0; heard.isEmpty() && attempt < 10; ++attempt) {
        call(player, method);
        (void)heard.wait(500);
    }
    return heard.isEmpty() ? QVariantList() : heard.takeFirst();
}

QVariantList announcement(const char *name, const char *title, const char *state) {
    return {QString::fromUtf8(name),
            QVariantMap{{QStringLiteral("Player"), QStringLiteral("Player")},
                        {QStringLiteral("Name"), QString::fromUtf8(title)},
                        {QStringLiteral("Artist"), QStringLiteral("Singer")},
                        {QStringLiteral("Player State"), QString::fromUtf8(state)}}};
}

} // namespace

class PlayerNotificationsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { qputenv("XDG_DATA_DIRS", "/nowhere/at/all"); }

    void announcesSpotifyAndTheMusicPlayer() {
        installApplication(QStringLiteral("org.example.Tunes"),
                           "Exec=true\nMimeType=audio/mpeg;\nCategories=AudioVideo;Audio;Player;");
        const auto bus = std::make_shared<SessionBus>(QStringLiteral("players"));
        BusPlayerNotifications notifications(bus);
        QSignalSpy received(&notifications, &PlayerNotifications::received);
        const QSignalSpy presence(&notifications, &PlayerNotifications::presenceChanged);
        const PlayerProcess repeater("playerctld");
        notifications.start();
        QTRY_COMPARE(notifications.presence(), PlayerPresence::None);
        {
            const PlayerProcess spotify("spotify");
            QTRY_COMPARE(notifications.presence(), PlayerPresence::Some);
            const PlayerProcess music("tunes");
            const PlayerProcess another("another");
            QCOMPARE(callUntilHeard(QStringLiteral("spotify"), QStringLiteral("Pause"), received),
                     announcement("com.spotify.client.PlaybackStateChanged", "Song", "Paused"));
            QCOMPARE(callUntilHeard(QStringLiteral("tunes"), QStringLiteral("Next"), received),
                     announcement("com.apple.Music.playerInfo", "Next", "Playing"));
            QSignalSpy changed(&notifications, &PlayerNotifications::changed);
            call(QStringLiteral("another"), QStringLiteral("Pause"));
            QTRY_COMPARE(changed.count(), 5);
            QTest::qWait(200);
            QCOMPARE(received.count(), 0); // one per burst, and none for other players
            BusPlayerNotifications later(bus);
            later.start();
            QTRY_COMPARE(later.presence(), PlayerPresence::Some);
        }
        QTRY_COMPARE(notifications.presence(), PlayerPresence::None);
        QCOMPARE(presence.count(), 3);
    }

    void presenceIsUnknownWithoutABus() {
        const auto busPid = pid_t(qEnvironmentVariableIntValue("PERCHLY_TEST_BUS_PID"));
        kill(busPid, SIGSTOP);
        BusPlayerNotifications notifications(std::make_shared<SessionBus>(QStringLiteral("late")));
        kill(busPid, SIGCONT);
        notifications.start();
        QCOMPARE(notifications.presence(), PlayerPresence::Unknown);
        QTRY_COMPARE_WITH_TIMEOUT(notifications.presence(), PlayerPresence::None, 15'000);
        kill(busPid, SIGKILL);
        QTRY_COMPARE(notifications.presence(), PlayerPresence::Unknown);
    }
};

QTEST_GUILESS_MAIN(PlayerNotificationsTest)
#include "PlayerNotificationsTest.moc"
