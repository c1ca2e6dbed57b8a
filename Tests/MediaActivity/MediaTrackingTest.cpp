#include "Announcements.h"
#include "MediaFixture.h"
#include "TestRegistry.h"

#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

const QString spotify = QStringLiteral("com.spotify.client.PlaybackStateChanged");
const QString music = QStringLiteral("com.apple.Music.playerInfo");

QVariantMap information(const QVariant &name, const QVariant &artist, const char *state) {
    return {{QStringLiteral("Name"), name},
            {QStringLiteral("Artist"), artist},
            {QStringLiteral("Player State"), QString::fromUtf8(state)}};
}

QVariantMap song(const char *state) {
    return information(QStringLiteral("Song"), QStringLiteral("Singer"), state);
}

} // namespace

class MediaTrackingTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void pollsTwoSecondsAfterEachReading() {
        MediaFixture fixture;
        fixture.tracking.startMediaMonitoring();
        QCOMPARE(fixture.fake.scriptHost.underWay(), 1);
        fixture.fake.clock.advance(10s);
        QCOMPARE(fixture.fake.scriptHost.started.size(), std::size_t(1)); // never two at a time
        fixture.fake.scriptHost.answer(json(track()));
        QCOMPARE(fixture.model.musicTitle(), track().title);
        fixture.fake.clock.advance(1999ms);
        QCOMPARE(fixture.fake.scriptHost.underWay(), 0);
        fixture.fake.clock.advance(1ms);
        QCOMPARE(fixture.fake.scriptHost.underWay(), 1);
        fixture.fake.scriptHost.answer("null\n");
        QVERIFY(!fixture.model.systemMedia());
        fixture.tracking.stopMediaMonitoring();
        fixture.fake.clock.advance(10s);
        QCOMPARE(fixture.fake.scriptHost.underWay(), 0);
    }

    void aFailedReadingChangesNothing() {
        MediaFixture fixture;
        fixture.tracking.startMediaMonitoring();
        fixture.fake.scriptHost.answer(json(track()));
        Announcements announcements(fixture.model);
        for (const QByteArray &junk : {QByteArray("[]"), QByteArray("true"), QByteArray()}) {
            fixture.fake.clock.advance(2s);
            fixture.fake.scriptHost.answer(junk);
        }
        fixture.fake.clock.advance(2s);
        fixture.fake.scriptHost.fail();
        fixture.fake.playerNotifications.setPresence(PlayerPresence::Unknown);
        fixture.fake.clock.advance(4s);
        QCOMPARE(announcements.take(), QStringList());
        QCOMPARE(fixture.fake.scriptHost.started.size(), std::size_t(5));
    }

    void restsWhileThereIsNoPlayer() {
        MediaFixture fixture;
        fixture.tracking.startMediaMonitoring();
        fixture.fake.scriptHost.answer(json(track()));
        fixture.fake.playerNotifications.setPresence(PlayerPresence::None);
        fixture.fake.clock.advance(2s);
        QVERIFY(!fixture.model.systemMedia());
        const qsizetype atRest = fixture.fake.clock.scheduledTasks();
        fixture.model.music(); // shows for a moment that it was asked for
        QVERIFY(fixture.model.musicActive());
        QCOMPARE(fixture.fake.musicPlayer.opened, 1);
        QCOMPARE(fixture.model.mediaSource(), QStringLiteral("Apple Music"));
        QCOMPARE(fixture.model.activity(), QStringLiteral("Music is open"));
        fixture.fake.clock.advance(2s);
        QVERIFY(!fixture.model.musicActive());
        fixture.model.control(QStringLiteral("playpause"));
        fixture.fake.clock.advance(2s);
        fixture.fake.scriptHost.fail(); // when a look has been made and dropped
        QVERIFY(fixture.model.musicActive());
        fixture.fake.clock.advance(2s);
        QVERIFY(!fixture.model.musicActive());
        QCOMPARE(fixture.fake.clock.scheduledTasks(), atRest);
        QCOMPARE(fixture.fake.scriptHost.underWay(), 0);
        fixture.fake.playerNotifications.setPresence(PlayerPresence::Some);
        QCOMPARE(fixture.fake.scriptHost.underWay(), 1);
        fixture.fake.playerNotifications.setPresence(PlayerPresence::None);
        fixture.fake.scriptHost.answer(json(track())); // of a player that has left since
        QVERIFY(fixture.model.systemMedia());
        fixture.fake.clock.advance(2s);
        QVERIFY(!fixture.model.systemMedia());
        QCOMPARE(fixture.fake.clock.scheduledTasks(), atRest);
    }

    void nothingHandsBackToTheAnnouncements() {
        MediaFixture fixture;
        fixture.tracking.applyMedia(track());
        QVERIFY(fixture.model.mediaIsBrowser() && fixture.model.mediaCanSeek());
        QVERIFY(fixture.model.systemMedia() && fixture.model.musicActive() &&
                fixture.model.playing());
        QCOMPARE(fixture.model.musicArtist(), track().artist);
        QCOMPARE(fixture.model.mediaSource(), track().source);
        QCOMPARE(fixture.model.artist(), QString());

        fixture.tracking.applyMedia(std::nullopt);
        QVERIFY(!fixture.model.musicActive());
        QCOMPARE(fixture.model.musicTitle(), QStringLiteral("Music"));
        QCOMPARE(fixture.model.musicArtist(), QString());
        QCOMPARE(fixture.model.mediaSource(), QStringLiteral("Media"));
        Q_EMIT fixture.fake.playerNotifications.received(music, song("Playing"));
        QCOMPARE(fixture.model.mediaSource(), QStringLiteral("Apple Music"));
        QVERIFY(fixture.model.musicActive());
    }

    void followsAnnouncements() {
        MediaFixture fixture;
        const ShelfModel &model = fixture.model;
        const auto shown = [&] {
            return QStringList{model.mediaSource(), model.playerID(), model.musicTitle(),
                               model.musicArtist(), model.activity(), model.artist()}
                .join(u'|');
        };
        Q_EMIT fixture.fake.playerNotifications.received(spotify, song("Paused"));
        QCOMPARE(shown(), QStringLiteral("Spotify|com.spotify.client|Song|Singer|Song|Singer"));
        QVERIFY(model.musicActive() && !model.playing());
        Q_EMIT fixture.fake.playerNotifications.received(music, song("Playing"));
        QCOMPARE(shown(), QStringLiteral("Apple Music|com.apple.Music|Song|Singer|Song|Singer"));
        QVERIFY(model.playing());
        const QStringList list{QStringLiteral("Singer")};
        for (const QVariantMap &facts : {QVariantMap(), information(7, list, "playing")}) {
            Q_EMIT fixture.fake.playerNotifications.received(music, facts);
            QCOMPARE(shown(), QStringLiteral("Apple Music|com.apple.Music|Music||Music|"));
            QVERIFY(!model.playing());
        }
    }

    void theSessionComesBeforeAnnouncements() {
        MediaFixture fixture;
        fixture.tracking.applyMedia(track());
        Announcements announcements(fixture.model);
        Q_EMIT fixture.fake.playerNotifications.received(spotify, song("Playing"));
        QCOMPARE(announcements.take(), QStringList());
        QCOMPARE(fixture.model.playerID(), QStringLiteral("com.apple.Music"));
    }

    void aRunningTimerKeepsItsLine() {
        MediaFixture fixture;
        fixture.model.focus();
        const QString line = fixture.model.activity();
        Q_EMIT fixture.fake.playerNotifications.received(music, song("Playing"));
        QCOMPARE(fixture.model.musicTitle(), QStringLiteral("Song"));
        QVERIFY(fixture.model.playing());
        QCOMPARE(fixture.model.activity(), line);
        QCOMPARE(fixture.model.artist(), QString());
    }
};

static const RegisteredTest<MediaTrackingTest> registeredMediaTrackingTest;
#include "MediaTrackingTest.moc"
