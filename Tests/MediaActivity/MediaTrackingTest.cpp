#include "MediaFixture.h"
#include "TestRegistry.h"

#include <QSignalSpy>
#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

struct PollFixture : MediaFixture {
    PollFixture() {
        tracking.startMediaMonitoring();
        scripts.answer(item());
    }
    void pollAgain(const QByteArray &output) {
        fake.clock.advance(2s);
        scripts.answer(output);
    }

    FakeScriptHost &scripts = fake.scriptHost;
};

} // namespace

class MediaTrackingTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void pollsTwoSecondsAfterEachReading() {
        PollFixture fixture;
        const QSignalSpy changed(&fixture.model, &ShelfModel::mediaChanged);
        fixture.fake.clock.advance(1999ms);
        QCOMPARE(fixture.scripts.underWay(), 0);
        fixture.fake.clock.advance(1ms);
        QCOMPARE(fixture.scripts.underWay(), 1);
        fixture.fake.clock.advance(10s);
        QCOMPARE(fixture.scripts.started.size(), std::size_t(2)); // never two at a time
        fixture.scripts.fail();
        fixture.pollAgain("[]");
        fixture.pollAgain(item());
        QCOMPARE(fixture.model.musicTitle(), QStringLiteral("Song"));
        QCOMPARE(changed.count(), 0);
        fixture.pollAgain("null\n");
        QVERIFY(!fixture.model.musicActive());
        fixture.tracking.stopMediaMonitoring();
        fixture.fake.clock.advance(10s);
        QCOMPARE(fixture.scripts.underWay(), 0);
    }

    void restsWhileThereIsNoPlayer() {
        PollFixture fixture;
        const ShelfModel &model = fixture.model;
        fixture.fake.playerNotifications.setPresence(PlayerPresence::None);
        fixture.fake.clock.advance(2s);
        QVERIFY(!model.musicActive());
        const qsizetype atRest = fixture.fake.clock.scheduledTasks();
        fixture.model.music(); // shown for a moment
        QCOMPARE(fixture.fake.musicPlayer.opened, 1);
        QCOMPARE(model.mediaSource(), QStringLiteral("Apple Music"));
        QCOMPARE(model.activity(), QStringLiteral("Music is open"));
        QVERIFY(model.musicActive());
        fixture.fake.clock.advance(2s);
        QVERIFY(!model.musicActive());
        QCOMPARE(fixture.fake.clock.scheduledTasks(), atRest);
        fixture.fake.playerNotifications.setPresence(PlayerPresence::Some);
        fixture.fake.playerNotifications.setPresence(PlayerPresence::None);
        fixture.scripts.answer(item()); // of a player that has left since
        QVERIFY(model.musicActive());
        fixture.fake.clock.advance(2s);
        QVERIFY(!model.musicActive());
        QCOMPARE(fixture.fake.clock.scheduledTasks(), atRest);
    }

    void readingDuringACommandIsNotShown() {
        PollFixture fixture;
        fixture.fake.clock.advance(2s); // a reading is under way
        fixture.model.control(QStringLiteral("playpause"));
        fixture.scripts.answer(item("Late"));
        QCOMPARE(fixture.model.musicTitle(), QStringLiteral("Song"));
        fixture.scripts.answer("null"); // the command's own reading
        fixture.pollAgain("null");
        QVERIFY(!fixture.model.musicActive());
    }

    void announcementsCountWhileTheSessionHasNothing() {
        PollFixture fixture;
        const ShelfModel &model = fixture.model;
        const auto announce = [&](const QString &player, const QVariant &title) {
            Q_EMIT fixture.fake.playerNotifications.received(
                player, {{QStringLiteral("Name"), title},
                         {QStringLiteral("Player State"), QStringLiteral("Playing")}});
            return QStringList{model.mediaSource(), model.media().playerID, model.musicTitle(),
                               model.activity()}
                .join(u'|');
        };
        const auto spotify = QStringLiteral("com.spotify.client.PlaybackStateChanged");
        const auto music = QStringLiteral("com.apple.Music.playerInfo");
        QCOMPARE(announce(spotify, QStringLiteral("A")),
                 QStringLiteral("Chromium|com.apple.Music|Song|Ready when you are"));
        fixture.pollAgain("null");
        QCOMPARE(model.musicTitle() + model.mediaSource(), QStringLiteral("MusicMedia"));
        QCOMPARE(announce(spotify, QStringLiteral("A")),
                 QStringLiteral("Spotify|com.spotify.client|A|A"));
        QCOMPARE(announce(music, 7), QStringLiteral("Apple Music|com.apple.Music|Music|Music"));
        QVERIFY(model.musicActive() && model.playing());
        fixture.model.focus(); // whose line stays
        QCOMPARE(announce(music, QStringLiteral("B")),
                 QStringLiteral("Apple Music|com.apple.Music|B|Focus session"));
    }
};

static const RegisteredTest<MediaTrackingTest> registeredMediaTrackingTest;
#include "MediaTrackingTest.moc"
