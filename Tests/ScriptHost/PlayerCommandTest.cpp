#include "MediaScripts.h"
#include "PlayerProcess.h"

#include "TestFiles.h"

#include <QElapsedTimer>

using namespace perchly;

namespace {

using Command = MediaPlaybackCommand;

QByteArray send(Command command, std::optional<double> position = {}) {
    return runJavaScript(*sendScript(command, position)).value_or("failed");
}

QByteArray tell(const char *player, const char *word) {
    return runCompanion({QStringLiteral("-e"),
                         playerScript(QString::fromUtf8(player), QString::fromUtf8(word))})
        .value_or("failed");
}

} // namespace

class PlayerCommandTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// Nothing is installed but what the test installs.
    void initTestCase() { qputenv("XDG_DATA_DIRS", "/nowhere/at/all"); }

    void commandsReachThePlayer() {
        PlayerProcess player("scripted");
        for (const auto &[command, method] :
             {std::pair(Command::Pause, "Pause"), std::pair(Command::Play, "Play"),
              std::pair(Command::Next, "Next"), std::pair(Command::Previous, "Previous")}) {
            QElapsedTimer timer;
            timer.start();
            QCOMPARE(send(command), QByteArray("true\n"));
            QCOMPARE(player.commands(), QStringList{QString::fromUtf8(method)});
            QVERIFY2(timer.elapsed() >= 600, "the sender stays for a moment");
        }
    }

    void everyPlayerIsToldInItsWay_data() {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<Command>("command");
        QTest::addColumn<QByteArray>("accepted");
        QTest::addColumn<QStringList>("commands");
        const auto row = [](const char *name, const char *script, Command command,
                            const char *accepted, const QStringList &commands) {
            QTest::newRow(name) << QByteArray(script) << command << QByteArray(accepted)
                                << commands;
        };
        const QStringList next{QStringLiteral("Next")};
        const QStringList byDifference{QStringLiteral("Seek -57750000")};
        row("it refuses", R"({"behaviour": "refuses"})", Command::Next, "false\n", next);
        row("it cannot", R"({"properties": {"CanGoNext": ["b", false]}})", Command::Next, "false\n",
            {});
        row("it answers too late", R"({"behaviour": "late", "delay": 2})", Command::Next, "false\n",
            next);
        row("a track with a path", "{}", Command::Rewind, "true\n",
            {QStringLiteral("SetPosition /track/1 42250000")});
        row("a track without one", R"({"metadata": {"mpris:trackid": null}})", Command::Rewind,
            "true\n", byDifference);
        row("the path that stands for none",
            R"({"metadata": {"mpris:trackid": ["o", "/org/mpris/MediaPlayer2/TrackList/NoTrack"]}})",
            Command::Rewind, "true\n", byDifference);
        row("it cannot seek", R"({"properties": {"CanSeek": ["b", false]}})", Command::Rewind,
            "true\n", {});
    }

    void everyPlayerIsToldInItsWay() {
        QFETCH(const QByteArray, script);
        QFETCH(const Command, command);
        PlayerProcess player("scripted", script);
        QTEST(send(command, 42.25), "accepted");
        QTEST(player.commands(), "commands");
    }

    void aPlayerScriptReachesItsPlayer() {
        QCOMPARE(tell("com.spotify.client", "playpause"), QByteArray("failed"));
        PlayerProcess other("another");
        QCOMPARE(tell("com.spotify.client", "playpause"), QByteArray("failed"));
        {
            PlayerProcess player("spotify");
            QCOMPARE(tell("com.spotify.client", "playpause"), QByteArray("paused\n"));
            QCOMPARE(tell("com.spotify.client", "next track"), QByteArray("paused\n"));
            QCOMPARE(tell("com.spotify.client", "forward"), QByteArray("paused\n"));
            QCOMPARE(player.commands(),
                     QStringList({QStringLiteral("Pause"), QStringLiteral("Next"),
                                  QStringLiteral("Seek 15000000")}));
            QCOMPARE(other.commands(), QStringList());
        }
        const PlayerProcess refuses("spotify", R"({"behaviour": "refuses"})");
        QCOMPARE(tell("com.spotify.client", "playpause"), QByteArray("failed"));
    }

    void theMusicApplicationIsThePersonsDefault() {
        installApplication(QStringLiteral("org.example.Tunes"),
                           "Exec=true\nMimeType=audio/mpeg;\nCategories=Audio;Player;");
        PlayerProcess tunes("tunes");
        PlayerProcess radio("radio");
        QCOMPARE(tell("com.apple.Music", "next track"), QByteArray("playing\n"));
        QCOMPARE(tunes.commands(), QStringList{QStringLiteral("Next")});
        QCOMPARE(radio.commands(), QStringList());
    }
};

QTEST_GUILESS_MAIN(PlayerCommandTest)
#include "PlayerCommandTest.moc"
