#include "MediaFixture.h"
#include "MediaScripts.h"
#include "TestRegistry.h"

#include <QTest>

#include <functional>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

const QString changed = QStringLiteral(
    "The media session changed. Wait for the current player to appear, then try again.");
const QString notSeekable = QStringLiteral("This player does not expose a seekable timeline.");
const QString refused = QStringLiteral("Chromium could not receive this playback command.");
const QString ignored = QStringLiteral(
    "Chromium did not apply this media command. The tab may be closed, buffering, or "
    "unable to accept remote controls. Open the player and try again.");
const QString notAllowed = QStringLiteral(
    "Allow Perchly in System Settings → Privacy & Security → Automation, then try again.");

/// The session has `track()`, and the person presses a button.
struct PressFixture : MediaFixture {
    explicit PressFixture(const char *word) {
        tracking.applyMedia(track());
        model.control(QString::fromUtf8(word));
    }

    void readFresh(const MediaActivity &activity = track()) {
        fake.scriptHost.answer(json(activity));
    }
    /// The next verification reading.
    void verify(const MediaActivity &activity) {
        fake.clock.advance(300ms);
        fake.scriptHost.answer(json(activity));
    }
    [[nodiscard]] QString error() const { return model.controlError(); }
};

MediaActivity with(const std::function<void(MediaActivity &)> &change) {
    MediaActivity activity = track();
    change(activity);
    return activity;
}

const MediaActivity paused = with([](MediaActivity &activity) { activity.playing = false; });

} // namespace

class MediaControlTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPauseIsSentAndVerified();
    void aSecondPressIsIgnored();
    void anUnknownWordEndsAtOnce();
    void theFreshReadingDecidesWhatToSend();
    void aSessionThatChangedIsNotCommanded_data();
    void aSessionThatChangedIsNotCommanded();
    void aSeekNeedsATimeline();
    void aRefusedCommandIsTold_data();
    void aRefusedCommandIsTold();
    void anIgnoredCommandIsToldAfterFourReadings_data();
    void anIgnoredCommandIsToldAfterFourReadings();
    void failedVerificationsCountAsAttempts();
    void nextAndPreviousEndWithTheFirstReading();
    void aSeekIsDoneNearItsTarget_data();
    void aSeekIsDoneNearItsTarget();
    void verificationShowsWhatItReads();
    void thePollKeepsOutOfACommand();
    void aPlayerOutsideTheSessionIsTold_data();
    void aPlayerOutsideTheSessionIsTold();
    void aPressIsForgottenWithItsModel();
};

void MediaControlTest::aPauseIsSentAndVerified() {
    PressFixture press("playpause");
    QVERIFY(press.model.controlling());
    QCOMPARE(press.fake.scriptHost.script(), readScript());
    press.readFresh();
    QCOMPARE(press.fake.scriptHost.script(), *sendScript(MediaPlaybackCommand::Pause, {}));
    press.fake.scriptHost.answer("true\n");
    press.fake.clock.advance(299ms);
    QCOMPARE(press.fake.scriptHost.underWay(), 0);
    press.fake.clock.advance(1ms);
    press.fake.scriptHost.answer(json(paused));
    QVERIFY(!press.model.controlling());
    QVERIFY(!press.model.playing());
    QVERIFY(press.error().isNull());
}

void MediaControlTest::aSecondPressIsIgnored() {
    PressFixture press("playpause");
    press.model.setControlError(QStringLiteral("kept"));
    press.model.control(QStringLiteral("next track"));
    QCOMPARE(press.fake.scriptHost.underWay(), 1);
    QCOMPARE(press.error(), QStringLiteral("kept"));
}

void MediaControlTest::anUnknownWordEndsAtOnce() {
    const PressFixture press("stop");
    QVERIFY(!press.model.controlling());
    QVERIFY(press.fake.scriptHost.started.empty());
}

void MediaControlTest::theFreshReadingDecidesWhatToSend() {
    PressFixture press("playpause");
    press.readFresh(paused); // the person has paused it elsewhere meanwhile
    QCOMPARE(press.fake.scriptHost.script(), *sendScript(MediaPlaybackCommand::Play, {}));
    press.fake.scriptHost.answer("true");
    press.verify(paused);
    QVERIFY(press.model.controlling());
    press.verify(track());
    QVERIFY(!press.model.controlling());
    QVERIFY(press.error().isNull());
}

void MediaControlTest::aSessionThatChangedIsNotCommanded_data() {
    QTest::addColumn<QByteArray>("output");
    QTest::newRow("another track")
        << json(with([](MediaActivity &activity) { activity.title = QStringLiteral("Other"); }));
    QTest::newRow("another player")
        << json(with([](MediaActivity &activity) { activity.source = QStringLiteral("mpv"); }));
    QTest::newRow("nothing any more") << QByteArray("null\n");
    QTest::newRow("junk") << QByteArray("{}");
}

void MediaControlTest::aSessionThatChangedIsNotCommanded() {
    QFETCH(const QByteArray, output);
    PressFixture press("playpause");
    press.fake.scriptHost.answer(output);
    QVERIFY(!press.model.controlling());
    QCOMPARE(press.error(), changed);
    QCOMPARE(press.fake.scriptHost.started.size(), std::size_t(1));
}

void MediaControlTest::aSeekNeedsATimeline() {
    PressFixture press("forward");
    press.readFresh(with([](MediaActivity &activity) { activity.duration.reset(); }));
    QCOMPARE(press.error(), notSeekable);
    QVERIFY(!press.model.controlling());
    QCOMPARE(press.fake.scriptHost.started.size(), std::size_t(1));
}

void MediaControlTest::aRefusedCommandIsTold_data() {
    QTest::addColumn<bool>("answers");
    QTest::newRow("the player says no") << true;
    QTest::newRow("the script fails") << false;
}

void MediaControlTest::aRefusedCommandIsTold() {
    QFETCH(const bool, answers);
    PressFixture press("next track");
    press.readFresh();
    if (answers) {
        press.fake.scriptHost.answer("false\n");
    } else {
        press.fake.scriptHost.fail();
    }
    QCOMPARE(press.error(), refused);
    QVERIFY(!press.model.controlling());
}

void MediaControlTest::anIgnoredCommandIsToldAfterFourReadings_data() {
    QTest::addColumn<QString>("word");
    QTest::addColumn<QByteArray>("reading");
    QTest::newRow("it goes on playing") << QStringLiteral("playpause") << json(track());
    QTest::newRow("it stays where it was") << QStringLiteral("forward") << json(track());
    QTest::newRow("another track plays")
        << QStringLiteral("rewind")
        << json(with([](MediaActivity &activity) { activity.title = QStringLiteral("Other"); }));
    QTest::newRow("another player is paused")
        << QStringLiteral("playpause") << json(with([](MediaActivity &activity) {
               activity.source = QStringLiteral("mpv");
               activity.playing = false;
           }));
    QTest::newRow("it has gone") << QStringLiteral("playpause") << QByteArray("null");
}

void MediaControlTest::anIgnoredCommandIsToldAfterFourReadings() {
    QFETCH(const QString, word);
    QFETCH(const QByteArray, reading);
    PressFixture press(qPrintable(word));
    press.readFresh();
    press.fake.scriptHost.answer("true");
    for (int attempt = 0; attempt < 4; ++attempt) {
        QVERIFY(press.model.controlling());
        press.fake.clock.advance(300ms);
        press.fake.scriptHost.answer(reading);
    }
    QVERIFY(!press.model.controlling());
    QCOMPARE(press.error(), ignored);
    QCOMPARE(press.fake.scriptHost.started.size(), std::size_t(6));
}

void MediaControlTest::failedVerificationsCountAsAttempts() {
    for (const char *word : {"playpause", "next track"}) {
        PressFixture press(word);
        press.readFresh();
        press.fake.scriptHost.answer("true");
        for (int attempt = 0; attempt < 4; ++attempt) {
            press.fake.clock.advance(300ms);
            press.fake.scriptHost.fail();
        }
        QVERIFY(!press.model.controlling());
        QCOMPARE(press.error(), word[0] == 'p' ? ignored : QString());
        QCOMPARE(press.model.musicTitle(), track().title); // a failed reading changes nothing
    }
}

void MediaControlTest::nextAndPreviousEndWithTheFirstReading() {
    for (const char *word : {"next track", "previous track"}) {
        PressFixture press(word);
        press.readFresh();
        press.fake.scriptHost.answer("true");
        press.verify(track()); // a browser that ignores it
        QVERIFY(!press.model.controlling());
        QVERIFY(press.error().isNull());
        QCOMPARE(press.fake.scriptHost.started.size(), std::size_t(3));
    }
}

void MediaControlTest::aSeekIsDoneNearItsTarget_data() {
    QTest::addColumn<std::optional<double>>("position");
    QTest::addColumn<bool>("done");
    QTest::newRow("right there") << std::optional(115.0) << true;
    QTest::newRow("a little later") << std::optional(118.99) << true;
    QTest::newRow("four seconds off") << std::optional(119.0) << false;
    QTest::newRow("too early") << std::optional(110.0) << false;
    QTest::newRow("no position any more") << std::optional<double>() << false;
}

void MediaControlTest::aSeekIsDoneNearItsTarget() {
    QFETCH(const std::optional<double>, position);
    QFETCH(const bool, done);
    PressFixture press("forward");
    press.readFresh();
    QCOMPARE(press.fake.scriptHost.script(), *sendScript(MediaPlaybackCommand::Forward, 115));
    press.fake.scriptHost.answer("true");
    press.verify(with([&](MediaActivity &activity) { activity.elapsedTime = position; }));
    QCOMPARE(!press.model.controlling(), done);
    QVERIFY(press.error().isNull());
}

void MediaControlTest::verificationShowsWhatItReads() {
    PressFixture press("next track");
    press.readFresh();
    press.fake.scriptHost.answer("true");
    press.verify(with([](MediaActivity &activity) { activity.title = QStringLiteral("Second"); }));
    QCOMPARE(press.model.musicTitle(), QStringLiteral("Second"));
}

void MediaControlTest::thePollKeepsOutOfACommand() {
    MediaFixture fixture;
    fixture.tracking.startMediaMonitoring();
    fixture.fake.scriptHost.answer(json(track()));
    fixture.fake.clock.advance(2s); // a reading is under way
    fixture.model.control(QStringLiteral("playpause"));
    fixture.fake.scriptHost.answer(
        json(with([](MediaActivity &activity) { activity.title = QStringLiteral("Late"); })));
    QCOMPARE(fixture.model.musicTitle(), track().title);
    fixture.fake.scriptHost.answer("null"); // the command's own fresh reading
    QCOMPARE(fixture.model.controlError(), changed);
    fixture.fake.clock.advance(2s);
    fixture.fake.scriptHost.answer("null");
    QVERIFY(!fixture.model.systemMedia());
}

void MediaControlTest::aPlayerOutsideTheSessionIsTold_data() {
    QTest::addColumn<std::optional<QByteArray>>("output");
    QTest::addColumn<bool>("playing");
    QTest::addColumn<QString>("error");
    using Output = std::optional<QByteArray>;
    QTest::newRow("it plays") << Output("playing\n") << true << QString();
    QTest::newRow("in capitals and spaces") << Output("  PLAYING \n") << true << QString();
    QTest::newRow("it is paused") << Output("paused\n") << false << QString();
    QTest::newRow("it says nothing") << Output("") << false << QString();
    QTest::newRow("it may not be told") << Output() << true << notAllowed;
}

void MediaControlTest::aPlayerOutsideTheSessionIsTold() {
    QFETCH(const std::optional<QByteArray>, output);
    QFETCH(const QString, error);
    MediaFixture fixture;
    Q_EMIT fixture.fake.playerNotifications.received(
        QStringLiteral("com.spotify.client.PlaybackStateChanged"),
        {{QStringLiteral("Player State"), QStringLiteral("Playing")}});
    fixture.model.control(QStringLiteral("playpause"));
    const auto &run = fixture.fake.scriptHost.started.front();
    QCOMPARE(run.arguments,
             (QStringList{QStringLiteral("-e"), playerScript(QStringLiteral("com.spotify.client"),
                                                             QStringLiteral("playpause"))}));
    QVERIFY(run.limit == 15s);
    if (output) {
        fixture.fake.scriptHost.answer(*output);
    } else {
        fixture.fake.scriptHost.fail();
    }
    QVERIFY(!fixture.model.controlling());
    QTEST(fixture.model.playing(), "playing");
    QCOMPARE(fixture.model.controlError(), error);
}

void MediaControlTest::aPressIsForgottenWithItsModel() {
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

static const RegisteredTest<MediaControlTest> registered;
#include "MediaControlTest.moc"
