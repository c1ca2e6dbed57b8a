#include "MediaTracking.h"
#include "FakeHosts.h"
#include "MediaScripts.h"
#include "ShelfModel.h"
#include "TestRegistry.h"

#include <QSignalSpy>
#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

/// The companion's output for a reading of one track.
QByteArray item(const QByteArray &title = "Song", const QByteArray &source = "Chromium",
                const QByteArray &playing = "true", const QByteArray &elapsed = "100",
                const QByteArray &duration = "200") {
    return R"({"title":")" + title + R"(","artist":"Singer","source":")" + source +
           R"(","playing":)" + playing + R"(,"elapsedTime":)" + elapsed + R"(,"duration":)" +
           duration + "}\n";
}

/// A model that follows players, with a fake companion and clock.
struct MediaFixture {
    FakeHosts fake;
    ShelfModel model{fake.clock, fake.preferences, fake.alertSound};
    MediaTracking tracking{model, fake.clock, fake.scriptHost, fake.playerNotifications,
                           fake.musicPlayer};
};

struct ReadFixture : MediaFixture {
    ReadFixture() {
        tracking.startMediaMonitoring();
        fake.scriptHost.answer(item());
    }
    void readAgain(const QByteArray &output) {
        fake.clock.advance(100ms);
        Q_EMIT fake.playerNotifications.changed();
        fake.scriptHost.answer(output);
    }
};

const QString changed = QStringLiteral(
    "The media session changed. Wait for the current player to appear, then try again.");
const QString ignored = QStringLiteral(
    "Chromium did not apply this media command. The tab may be closed, buffering, or "
    "unable to accept remote controls. Open the player and try again.");

const QMap<QString, QByteArray> outputs{
    {QStringLiteral("plays"), item()},
    {QStringLiteral("paused"), item("Song", "Chromium", "false")},
    {QStringLiteral("other"), item("Other")},
    {QStringLiteral("mpv"), item("Song", "mpv", "false")},
    {QStringLiteral("endless"), item("Song", "Chromium", "true", "100", "null")},
    {QStringLiteral("near"), item("Song", "Chromium", "true", "118.99")},
    {QStringLiteral("off"), item("Song", "Chromium", "true", "119")},
    {QStringLiteral("nothing"), "null"},
    {QStringLiteral("yes"), "true\n"},
    {QStringLiteral("no"), "false\n"}};

/// A track of the session plays, and the user presses a button.
struct PressFixture : MediaFixture {
    explicit PressFixture(const QString &word) {
        applyMedia(model, decodeMediaReading(item()).activity);
        model.control(word);
    }

    /// Ends the next script, after the pause before a verification if needed.
    void answer(const QString &output) {
        if (fake.scriptHost.runs.count() == 0) {
            fake.clock.advance(300ms);
        }
        output == QStringLiteral("fail") ? fake.scriptHost.fail()
                                         : fake.scriptHost.answer(outputs[output]);
    }
};

} // namespace

class MediaTrackingTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void readsAfterEachChange() {
        ReadFixture fixture;
        FakePlayerNotifications &players = fixture.fake.playerNotifications;
        const QSignalSpy changed(&fixture.model, &ShelfModel::mediaChanged);
        fixture.fake.clock.advance(1h);
        QCOMPARE(fixture.fake.scriptHost.scripts.size(), 1);
        for (int signal = 0; signal < 3; ++signal) {
            Q_EMIT players.changed();
        }
        QCOMPARE(fixture.fake.scriptHost.runs.count(), 1U); // never two at a time
        fixture.fake.scriptHost.answer(item());
        fixture.fake.clock.advance(1h);
        fixture.fake.scriptHost.fail(); // one more for the signals since the reading began
        fixture.fake.clock.advance(1h);
        QCOMPARE(fixture.fake.scriptHost.scripts.size(), 3);
        for (const QByteArray &unreadable :
             {QByteArray("[]"), item("Other", "Chromium", "1"), item("Other").chopped(3)}) {
            fixture.readAgain(unreadable);
        }
        fixture.readAgain(item());
        QCOMPARE(fixture.model.musicTitle(), QStringLiteral("Song"));
        QCOMPARE(changed.count(), 0);
        fixture.readAgain(item("\\u202ea\\u0007b\\u200b\\n", "Firefox"));
        QCOMPARE(fixture.model.musicTitle(), QStringLiteral("a b"));
        fixture.readAgain("null\n");
        QVERIFY(!fixture.model.musicActive());
        fixture.tracking.stopMediaMonitoring();
        Q_EMIT players.changed();
        QCOMPARE(fixture.fake.scriptHost.runs.count(), 0U);
    }

    void clearsTheTrackOfAPlayerThatLeft() {
        ReadFixture fixture;
        const ShelfModel &model = fixture.model;
        fixture.fake.clock.advance(100ms);
        Q_EMIT fixture.fake.playerNotifications.changed();
        fixture.fake.playerNotifications.setPresence(PlayerPresence::None);
        fixture.fake.scriptHost.answer(item());
        QVERIFY(model.musicActive());
        fixture.fake.clock.advance(100ms);
        QVERIFY(!model.musicActive());
        QCOMPARE(fixture.fake.scriptHost.scripts.size(), 2); // no process without a player
    }

    void openingMusicPretendsNoTrack() {
        MediaFixture fixture;
        const ShelfModel &model = fixture.model;
        fixture.model.music();
        fixture.fake.musicPlayer.openings.takeFirst()(QStringLiteral("There is none."));
        QCOMPARE(model.controlError() + model.activity(),
                 QStringLiteral("There is none.Ready when you are"));
        fixture.model.music();
        fixture.fake.musicPlayer.openings.takeFirst()({});
        QCOMPARE(model.activity(), QStringLiteral("Music is open"));
        QVERIFY(!model.musicActive());
    }

    void ignoresReadingsDuringACommand() {
        ReadFixture fixture;
        Q_EMIT fixture.fake.playerNotifications.changed();
        fixture.model.control(QStringLiteral("playpause"));
        fixture.fake.scriptHost.answer(item("Late"));
        QCOMPARE(fixture.model.musicTitle(), QStringLiteral("Song"));
        fixture.fake.scriptHost.answer("null"); // the command's own reading
        fixture.fake.clock.advance(100ms);
        fixture.fake.scriptHost.answer("null"); // and one after it
        QVERIFY(!fixture.model.musicActive());
    }

    void pressesWaitForTheirTurn() {
        PressFixture press(QStringLiteral("next track"));
        for (const char *word : {"next track", "next track", "playpause"}) {
            press.model.control(QString::fromUtf8(word));
        }
        for (const char *title : {"Song", "B", "C"}) {
            press.fake.scriptHost.answer(item(title));
            QCOMPARE(press.fake.scriptHost.scripts.last(),
                     *sendScript(MediaPlaybackCommand::Next, {}));
            press.answer(QStringLiteral("yes"));
        }
        press.fake.scriptHost.answer(item("D"));
        QCOMPARE(press.fake.scriptHost.scripts.last(),
                 *sendScript(MediaPlaybackCommand::Pause, {}));
        press.model.control(QStringLiteral("next track"));
        press.answer(QStringLiteral("no")); // which drops the press that waits
        QVERIFY(!press.model.controlling());
    }

    void usesPlayerSignalsWithoutASession() {
        ReadFixture fixture;
        const ShelfModel &model = fixture.model;
        const auto announce = [&](const QString &player, const QVariant &title) {
            Q_EMIT fixture.fake.playerNotifications.received(
                player, {{QStringLiteral("Player"), player.section(u'.', 1, 1)},
                         {QStringLiteral("Name"), title},
                         {QStringLiteral("Player State"), QStringLiteral("Playing")}});
            return QStringList{model.mediaSource(), model.media().playerID, model.musicTitle(),
                               model.activity()}
                .join(u'|');
        };
        const auto spotify = QStringLiteral("com.spotify.client.PlaybackStateChanged");
        const auto music = QStringLiteral("com.apple.Music.playerInfo");
        QCOMPARE(announce(spotify, QStringLiteral("A")),
                 QStringLiteral("Chromium|com.apple.Music|Song|Ready when you are"));
        fixture.readAgain("null");
        QCOMPARE(model.musicTitle() + model.mediaSource(), QStringLiteral("MusicMusic"));
        QCOMPARE(announce(spotify, QStringLiteral("A")),
                 QStringLiteral("spotify|com.spotify.client|A|A"));
        QCOMPARE(announce(music, 7), QStringLiteral("apple|com.apple.Music|Music|Music"));
        QVERIFY(model.musicActive() && model.playing());
        fixture.model.focus(); // whose status line stays
        QCOMPARE(announce(music, QStringLiteral("B")),
                 QStringLiteral("apple|com.apple.Music|B|Focus session"));
        Q_EMIT fixture.fake.playerNotifications.received(
            music, {{QStringLiteral("Player State"), QStringLiteral("Stopped")}});
        QVERIFY(!model.musicActive());
    }

    void playOrPauseDependsOnAFreshReading() {
        PressFixture press(QStringLiteral("playpause"));
        QCOMPARE(press.fake.scriptHost.scripts, QStringList(readScript()));
        press.answer(QStringLiteral("paused")); // paused in the player meanwhile
        QCOMPARE(press.fake.scriptHost.scripts.last(), *sendScript(MediaPlaybackCommand::Play, {}));
        press.answer(QStringLiteral("yes"));
        press.fake.clock.advance(299ms);
        QCOMPARE(press.fake.scriptHost.runs.count(), 0U);
        press.answer(QStringLiteral("plays"));
        QVERIFY(!press.model.controlling() && press.model.playing());
    }

    void seeksWithinTheTrack() {
        const auto target = [](MediaPlaybackCommand command, double elapsed, double duration) {
            MediaActivity activity;
            activity.elapsedTime = elapsed;
            activity.duration = duration;
            return seekTarget(command, activity).value_or(-1);
        };
        QCOMPARE(target(MediaPlaybackCommand::Rewind, 10, 200), 0);
        QCOMPARE(target(MediaPlaybackCommand::Forward, 100.5, 200), 115.5);
        QCOMPARE(target(MediaPlaybackCommand::Forward, 195, 200), 200);
    }

    void commandsEndWithTheRightError_data() {
        QTest::addColumn<QString>("word");
        QTest::addColumn<QString>("answers");
        QTest::addColumn<QString>("error");
        const auto row = [](const char *name, const char *word, const char *answers,
                            const QString &error) {
            QTest::newRow(name) << QString::fromUtf8(word) << QString::fromUtf8(answers) << error;
        };
        const QString refused = QStringLiteral("Chromium could not receive this playback command.");
        const QString endless = QStringLiteral("This player does not expose a seekable timeline.");
        row("verified by the last reading", "playpause", "plays yes plays fail plays paused", {});
        row("unknown word", "stop", "", {});
        row("another player", "playpause", "mpv", changed);
        row("no player", "playpause", "nothing", changed);
        row("no timeline", "forward", "endless", endless);
        row("player refuses", "next track", "plays no", refused);
        row("player ignores it", "playpause", "plays yes plays plays plays plays", ignored);
        row("another player pauses", "playpause", "plays yes nothing mpv mpv mpv", ignored);
        row("no reading succeeds", "playpause", "plays yes fail fail fail fail", ignored);
        row("skip of another track", "previous track", "other yes", {});
        row("seek near its target", "forward", "plays yes off endless near", {});
    }

    void commandsEndWithTheRightError() {
        QFETCH(const QString, word);
        QFETCH(const QString, answers);
        PressFixture press(word);
        for (const QString &answer : answers.split(u' ', Qt::SkipEmptyParts)) {
            QVERIFY(press.model.controlling());
            press.answer(answer);
        }
        QVERIFY(!press.model.controlling());
        QTEST(press.model.controlError(), "error");
    }

    void sendsCommandsToPlayersOutsideTheSession() {
        MediaFixture fixture;
        Q_EMIT fixture.fake.playerNotifications.received(
            QStringLiteral("com.spotify.client.PlaybackStateChanged"), {});
        fixture.model.control(QStringLiteral("playpause"));
        QCOMPARE(fixture.fake.scriptHost.scripts.first(),
                 QStringLiteral("tell application id \"com.spotify.client\"\nplaypause\n"
                                "return player state as string\nend tell"));
        fixture.fake.scriptHost.answer("  PLAYING \n");
        QVERIFY(!fixture.model.controlling() && fixture.model.playing());
        fixture.model.control(QStringLiteral("playpause"));
        fixture.fake.scriptHost.answer("refused\n");
        QVERIFY(!fixture.model.controlling() && fixture.model.playing());
        QCOMPARE(fixture.model.controlError(), QStringLiteral("Music refused this command."));
        fixture.model.control(QStringLiteral("playpause"));
        fixture.fake.scriptHost.fail();
        QVERIFY(!fixture.model.musicActive());
        QCOMPARE(fixture.model.controlError(),
                 QStringLiteral("Nothing is playing. Start a player and try again."));
    }
};

static const RegisteredTest<MediaTrackingTest> registeredMediaTrackingTest;
#include "MediaTrackingTest.moc"
