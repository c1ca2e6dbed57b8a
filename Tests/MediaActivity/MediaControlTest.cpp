#include "MediaFixture.h"
#include "MediaScripts.h"
#include "TestRegistry.h"

#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

using Answer = std::optional<QByteArray>; ///< of a script; nothing when it fails
using Answers = QList<Answer>;

const QString changed = QStringLiteral(
    "The media session changed. Wait for the current player to appear, then try again.");
const QString ignored = QStringLiteral(
    "Chromium did not apply this media command. The tab may be closed, buffering, or "
    "unable to accept remote controls. Open the player and try again.");

/// `track()` under another title, from another player, paused, or elsewhere.
Answer other(const char *title, const char *source = "Chromium", bool playing = true,
             std::optional<double> elapsed = 100, std::optional<double> duration = 200) {
    return json({.title = QString::fromUtf8(title),
                 .artist = track().artist,
                 .source = QString::fromUtf8(source),
                 .playing = playing,
                 .elapsedTime = elapsed,
                 .duration = duration});
}

Answer at(std::optional<double> elapsed) {
    return other("Song", "Chromium", true, elapsed);
}

/// The session has `track()`, and the person presses a button.
struct PressFixture : MediaFixture {
    explicit PressFixture(const QString &word) {
        tracking.applyMedia(track());
        model.control(word);
    }

    /// The next script ends, if need be after the pause before a verification.
    void answer(const Answer &output) {
        if (fake.scriptHost.underWay() == 0) {
            fake.clock.advance(300ms);
        }
        if (output) {
            fake.scriptHost.answer(*output);
        } else {
            fake.scriptHost.fail();
        }
    }
};

} // namespace

class MediaControlTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aPauseIsSentAndVerified() {
        PressFixture press(QStringLiteral("playpause"));
        QVERIFY(press.model.controlling());
        const auto &reading = press.fake.scriptHost.started.front();
        QCOMPARE(reading.arguments, (QStringList{QStringLiteral("-l"), QStringLiteral("JavaScript"),
                                                 QStringLiteral("-e"), readScript()}));
        QVERIFY(reading.limit == 5s);
        press.answer(json(track()));
        QCOMPARE(press.fake.scriptHost.script(), *sendScript(MediaPlaybackCommand::Pause, {}));
        press.answer("true\n");
        press.fake.clock.advance(299ms);
        QCOMPARE(press.fake.scriptHost.underWay(), 0);
        press.fake.clock.advance(1ms);
        press.answer(other("Song", "Chromium", false));
        QVERIFY(!press.model.controlling() && !press.model.playing());
    }

    void theFreshReadingDecidesWhatToSend() {
        PressFixture pause(QStringLiteral("playpause"));
        pause.answer(other("Song", "Chromium", false)); // the person has paused it elsewhere
        QCOMPARE(pause.fake.scriptHost.script(), *sendScript(MediaPlaybackCommand::Play, {}));
        PressFixture seek(QStringLiteral("forward"));
        seek.answer(at(150));
        QCOMPARE(seek.fake.scriptHost.script(), *sendScript(MediaPlaybackCommand::Forward, 165));
    }

    void aCommandEnds_data() {
        QTest::addColumn<QString>("word");
        QTest::addColumn<Answers>("answers");
        QTest::addColumn<QString>("error");
        const auto row = [](const char *name, const char *word, const Answers &answers,
                            const QString &error) {
            QTest::newRow(name) << QString::fromUtf8(word) << answers << error;
        };
        const Answer playing = json(track());
        const Answer paused = other("Song", "Chromium", false);
        const Answer yes = "true";
        const Answer null = "null";
        const Answer failed;
        const QString refused = QStringLiteral("Chromium could not receive this playback command.");
        row("at the last look", "playpause", {playing, yes, playing, failed, playing, paused}, {});
        row("when paused meanwhile, as it plays", "playpause", {paused, yes, playing}, {});
        row("with another track", "playpause", {other("Other")}, changed);
        row("with another player", "playpause", {other("Song", "mpv")}, changed);
        row("with nothing any more", "playpause", {null}, changed);
        row("with junk", "playpause", {"{}"}, changed);
        row("without a timeline", "forward", {other("Song", "Chromium", true, 100, {})},
            QStringLiteral("This player does not expose a seekable timeline."));
        row("when the player says no", "next track", {playing, "false\n"}, refused);
        row("when the script fails", "next track", {playing, failed}, refused);
        row("when the script prints junk", "next track", {playing, "1\n"}, refused);
        row("when it goes on playing", "playpause",
            {playing, yes, playing, playing, playing, playing}, ignored);
        row("when another track plays", "rewind",
            {playing, yes, other("B"), other("B"), other("B"), other("B")}, ignored);
        row("when another player is paused", "playpause",
            {playing, yes, null, null, null, other("Song", "mpv", false)}, ignored);
        row("when no look succeeds", "playpause", {playing, yes, failed, failed, failed, failed},
            ignored);
        row("a skip at the first look, done or not", "next track", {playing, yes, playing}, {});
        row("a skip whose looks fail", "previous track",
            {playing, yes, failed, failed, failed, failed}, {});
        row("a seek near its target", "forward", {playing, yes, at(118.99)}, {});
        row("not a seek four seconds off or without a place", "forward",
            {playing, yes, at(119), at({}), at(110), at(115)}, {});
    }

    void aCommandEnds() {
        QFETCH(const QString, word);
        QFETCH(const Answers, answers);
        PressFixture press(word);
        for (const Answer &answer : answers) {
            QVERIFY(press.model.controlling());
            press.answer(answer);
        }
        QVERIFY(!press.model.controlling());
        QTEST(press.model.controlError(), "error");
        QCOMPARE(press.fake.scriptHost.started.size(), std::size_t(answers.size()));
    }

    void aSecondPressIsIgnored() {
        PressFixture press(QStringLiteral("playpause"));
        press.model.setControlError(QStringLiteral("kept"));
        press.model.control(QStringLiteral("next track"));
        QCOMPARE(press.fake.scriptHost.underWay(), 1);
        QCOMPARE(press.model.controlError(), QStringLiteral("kept"));
    }

    void anUnknownWordEndsAtOnce() {
        const PressFixture press(QStringLiteral("stop"));
        QVERIFY(!press.model.controlling() && press.fake.scriptHost.started.empty());
    }

    void thePollKeepsOutOfACommand() {
        MediaFixture fixture;
        fixture.tracking.startMediaMonitoring();
        fixture.fake.scriptHost.answer(json(track()));
        fixture.fake.clock.advance(2s); // a reading is under way
        fixture.model.control(QStringLiteral("playpause"));
        fixture.fake.scriptHost.answer(*other("Late"));
        QCOMPARE(fixture.model.musicTitle(), track().title);
        fixture.fake.scriptHost.answer("null"); // the command's own fresh reading
        QCOMPARE(fixture.model.controlError(), changed);
        fixture.fake.clock.advance(2s);
        fixture.fake.scriptHost.answer("null");
        QVERIFY(!fixture.model.systemMedia());
    }

    void aPlayerOutsideTheSessionIsTold_data() {
        QTest::addColumn<Answer>("output");
        QTest::addColumn<bool>("playing");
        QTest::addColumn<QString>("error");
        QTest::newRow("in capitals and spaces") << Answer("  PLAYING \n") << true << QString();
        QTest::newRow("it is paused") << Answer("paused\n") << false << QString();
        QTest::newRow("it may not be told")
            << Answer() << true
            << QStringLiteral("Allow Perchly in System Settings → Privacy & Security → "
                              "Automation, then try again.");
    }

    void aPlayerOutsideTheSessionIsTold() {
        QFETCH(const Answer, output);
        MediaFixture fixture;
        Q_EMIT fixture.fake.playerNotifications.received(
            QStringLiteral("com.spotify.client.PlaybackStateChanged"),
            {{QStringLiteral("Player State"), QStringLiteral("Playing")}});
        fixture.model.control(QStringLiteral("playpause"));
        const auto &run = fixture.fake.scriptHost.started.front();
        QCOMPARE(run.arguments, (QStringList{QStringLiteral("-e"),
                                             playerScript(QStringLiteral("com.spotify.client"),
                                                          QStringLiteral("playpause"))}));
        QVERIFY(run.limit == 15s);
        output ? fixture.fake.scriptHost.answer(*output) : fixture.fake.scriptHost.fail();
        QVERIFY(!fixture.model.controlling());
        QTEST(fixture.model.playing(), "playing");
        QTEST(fixture.model.controlError(), "error");
    }

    void aPressIsForgottenWithItsModel() {
        FakeHosts fake;
        {
            ShelfModel model(fake.clock, fake.preferences, fake.alertSound);
            MediaTracking tracking(model, fake.clock, fake.scriptHost, fake.playerNotifications,
                                   fake.musicPlayer);
            tracking.startMediaMonitoring();
            model.control(QStringLiteral("playpause"));
            QCOMPARE(fake.scriptHost.underWay(), 2);
        }
        QCOMPARE(fake.scriptHost.underWay(), 0);
        QCOMPARE(fake.clock.scheduledTasks(), 0);
    }
};

static const RegisteredTest<MediaControlTest> registeredMediaControlTest;
#include "MediaControlTest.moc"
