#include "MediaFixture.h"
#include "MediaScripts.h"
#include "TestRegistry.h"

#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

const QString changed = QStringLiteral(
    "The media session changed. Wait for the current player to appear, then try again.");
const QString ignored = QStringLiteral(
    "Chromium did not apply this media command. The tab may be closed, buffering, or "
    "unable to accept remote controls. Open the player and try again.");

const QMap<QString, QByteArray> outputs{
    {QStringLiteral("plays"), item()},
    {QStringLiteral("paused"), item("Song", "Chromium", "false")},
    {QStringLiteral("mpv"), item("Song", "mpv", "false")},
    {QStringLiteral("endless"), item("Song", "Chromium", "true", "100", "null")},
    {QStringLiteral("near"), item("Song", "Chromium", "true", "118.99")},
    {QStringLiteral("off"), item("Song", "Chromium", "true", "119")},
    {QStringLiteral("nothing"), "null"},
    {QStringLiteral("yes"), "true\n"},
    {QStringLiteral("no"), "false\n"}};

/// The session has a playing item, and the user presses a button.
struct PressFixture : MediaFixture {
    explicit PressFixture(const QString &word) {
        applyMedia(model, decodeMediaReading(item()).activity);
        model.control(word);
    }

    /// Ends the next script, if need be after the pause before a verification.
    void answer(const QString &output) {
        if (fake.scriptHost.underWay() == 0) {
            fake.clock.advance(300ms);
        }
        if (outputs.contains(output)) {
            fake.scriptHost.answer(outputs[output]);
        } else {
            fake.scriptHost.fail();
        }
    }
};

} // namespace

class MediaControlTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void freshReadingDecidesWhatToSend() {
        PressFixture press(QStringLiteral("playpause"));
        const auto &reading = press.fake.scriptHost.started.front();
        QCOMPARE(reading.arguments, (QStringList{QStringLiteral("-l"), QStringLiteral("JavaScript"),
                                                 QStringLiteral("-e"), readScript()}));
        QVERIFY(reading.limit == 5s);
        press.model.control(QStringLiteral("next track")); // ignored
        press.answer(QStringLiteral("paused"));            // elsewhere meanwhile
        QCOMPARE(press.fake.scriptHost.script(), *sendScript(MediaPlaybackCommand::Play, {}));
        press.answer(QStringLiteral("yes"));
        press.fake.clock.advance(299ms);
        QCOMPARE(press.fake.scriptHost.underWay(), 0);
        press.answer(QStringLiteral("plays"));
        QVERIFY(!press.model.controlling() && press.model.playing());
    }

    void commandEnds_data() {
        QTest::addColumn<QString>("word");
        QTest::addColumn<QString>("answers");
        QTest::addColumn<QString>("error");
        const auto row = [](const char *name, const char *word, const char *answers,
                            const QString &error) {
            QTest::newRow(name) << QString::fromUtf8(word) << QString::fromUtf8(answers) << error;
        };
        const QString refused = QStringLiteral("Chromium could not receive this playback command.");
        const QString endless = QStringLiteral("This player does not expose a seekable timeline.");
        row("at the last look", "playpause", "plays yes plays fail plays paused", {});
        row("at once when the word is unknown", "stop", "", {});
        row("with another player", "playpause", "mpv", changed);
        row("with nothing any more", "playpause", "nothing", changed);
        row("without a timeline", "forward", "endless", endless);
        row("when the player says no", "next track", "plays no", refused);
        row("when it ignores", "playpause", "plays yes plays plays plays plays", ignored);
        row("when another pauses", "playpause", "plays yes nothing mpv mpv mpv", ignored);
        row("when no look succeeds", "playpause", "plays yes fail fail fail fail", ignored);
        row("a skip at the first look", "next track", "plays yes plays", {});
        row("a skip whose looks fail", "previous track", "plays yes fail fail fail fail", {});
        row("a seek near its target", "forward", "plays yes off endless near", {});
    }

    void commandEnds() {
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

    void playerOutsideTheSessionIsTold() {
        MediaFixture fixture;
        Q_EMIT fixture.fake.playerNotifications.received(
            QStringLiteral("com.spotify.client.PlaybackStateChanged"), {});
        fixture.model.control(QStringLiteral("playpause"));
        QCOMPARE(fixture.fake.scriptHost.started.front().arguments.last(),
                 QStringLiteral("tell application id \"com.spotify.client\"\nplaypause\n"
                                "return player state as string\nend tell"));
        fixture.fake.scriptHost.answer("  PLAYING \n");
        QVERIFY(!fixture.model.controlling() && fixture.model.playing());
        fixture.model.control(QStringLiteral("playpause"));
        fixture.fake.scriptHost.fail();
        QVERIFY(!fixture.model.controlling() && fixture.model.playing());
        QCOMPARE(fixture.model.controlError(),
                 QStringLiteral("Allow Perchly in System Settings → Privacy & Security → "
                                "Automation, then try again."));
    }
};

static const RegisteredTest<MediaControlTest> registeredMediaControlTest;
#include "MediaControlTest.moc"
