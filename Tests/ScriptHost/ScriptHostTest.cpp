#include "MediaScripts.h"
#include "PlayerProcess.h"
#include "SessionOwner.h"
#include "TestFiles.h"

#include <QElapsedTimer>

using namespace perchly;

namespace {

using Command = MediaPlaybackCommand;

QByteArray run(const QStringList &arguments) {
    QProcess process;
    process.start(QStringLiteral(COMPANION), arguments);
    const bool succeeds = process.waitForFinished(8000) &&
                          process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    return succeeds ? process.readAllStandardOutput().trimmed() : QByteArray("failed");
}

QByteArray evaluate(const QString &script) {
    return run({QStringLiteral("-l"), QStringLiteral("JavaScript"), QStringLiteral("-e"), script});
}

QByteArray read() {
    return evaluate(readScript());
}

QByteArray tell(const char *player, const char *word) {
    return run(
        {QStringLiteral("-e"), playerScript(QString::fromUtf8(player), QString::fromUtf8(word))});
}

QByteArray titled(const char *title, const char *status = "Playing") {
    return QByteArray(R"({"metadata": {"xesam:title": ["s", ")") + title +
           R"("]}, "properties": {"PlaybackStatus": ["s", ")" + status + R"("]}})";
}

} // namespace

class ScriptHostTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { qputenv("XDG_DATA_DIRS", "/nowhere/at/all"); }

    void readsPlayers_data() {
        QTest::addColumn<QByteArray>("player");
        QTest::addColumn<QByteArray>("part"); ///< the expected part of the reading
        const auto row = [](const QByteArray &player, const char *part) {
            QTest::newRow(player) << player << QByteArray(part);
        };
        row("{}", R"({"elapsedTime":100,"duration":200,"title":"Song","artist":"Singer",)"
                  R"("source":"Player","playing":true})");
        row(R"({"identity": null, "properties": {"Position": ["x", -192606]}, "metadata": {)"
            R"("xesam:artist": ["as", ["A", "", "B"]], "mpris:length": ["t", 5000000]}})",
            R"({"elapsedTime":0,"duration":5,"title":"Song","artist":"A, B","source":"Media")");
        row(R"({"properties": {"Position": ["x", -5000000]}, "metadata": {)"
            R"("xesam:artist": ["s", "A"], "mpris:length": ["d", 2500000.0]}})",
            R"({"elapsedTime":null,"duration":2.5,"title":"Song","artist":"A")");
        row(R"({"properties": {"CanSeek": ["b", false]}})", R"("duration":null)");
        row(titled("Song", "Stopped"), "null");
        row(titled("x\\\" שלום 😀"), "\"x\\\" שלום 😀\"");
    }

    void readsPlayers() {
        QFETCH(const QByteArray, player);
        const PlayerProcess process("scripted", player);
        QFETCH(const QByteArray, part);
        const QByteArray reading = read();
        QVERIFY2(reading.contains(part), reading.constData());
    }

    void hangingPlayersTimeOut() {
        const PlayerProcess silent("a_silent", R"({"behaviour": "silent"})");
        const PlayerProcess paused("paused", titled("Paused", "Paused"));
        QElapsedTimer timer;
        timer.start();
        QVERIFY(read().contains("Paused"));
        QVERIFY(timer.elapsed() >= 950 && timer.elapsed() < 2000);
        const PlayerProcess player("playing");
        timer.start();
        QVERIFY(read().contains("Song"));
        QVERIFY(timer.elapsed() < 900);
    }

    void choosesTheSessionOwner_data() {
        QTest::addColumn<PlayerMemory>("before");
        QTest::addColumn<QByteArray>("looks"); ///< a name and a state each; see below
        QTest::addColumn<QByteArray>("after");
        QTest::addColumn<QByteArray>("owner");
        const auto row = [](const char *name, const PlayerMemory &before, const char *looks,
                            const char *after, const char *owner) {
            QTest::newRow(name) << before << QByteArray(looks) << QByteArray(after)
                                << QByteArray(owner);
        };
        row("first player that plays", {}, "a:paused b:playing c:playing", "+b+c-a", "b");
        row("player that starts", {{"a", true}, {"b", false}}, "a:playing b:playing", "+b+a", "b");
        row("last player that started when all pause", {{"a", false}, {"b", true}},
            "a:paused b:paused", "-a-b", "a");
        row("player that we paused", {{"a", true, true}, {"b", true}}, "a:paused b:playing", "=a+b",
            "a");
        row("until another starts", {{"a", false, true}, {"b", false}}, "a:paused b:playing",
            "+b-a", "b");
        row("or it stops", {{"a", false, true}, {"b", true}}, "a:stopped b:playing", "-a+b", "b");
        row("or it quits", {{"a", false, true}, {"b", true}}, "b:playing", "+b", "b");
        row("never one without a title", {{"a", true}}, "a:untitled b:paused", "-a-b", "b");
        row("hanging player keeps its place", {{"a", true}, {"b", false}}, "a:hanging b:paused",
            "+a-b", "b");
    }

    void choosesTheSessionOwner() {
        QFETCH(const PlayerMemory, before);
        QFETCH(const QByteArray, looks);
        std::vector<Player> players;
        for (const QByteArray &look : looks.split(' ')) {
            const QByteArray state = look.mid(2);
            Player player;
            player.busName = look.left(1).toStdString();
            player.answered = state != "hanging";
            player.title = state == "untitled" ? "" : "Title";
            player.playback = state == "stopped"  ? Playback::Stopped
                              : state == "paused" ? Playback::Paused
                                                  : Playback::Playing;
            players.push_back(player);
        }
        const PlayerMemory after = remember(before, players);
        QByteArray shown;
        for (const auto &[name, playing, held] : after) {
            shown += (held ? "=" : playing ? "+" : "-") + QByteArray::fromStdString(name);
        }
        QTEST(shown, "after");
        const Player *owner = sessionOwner(after, players);
        QTEST(QByteArray(owner != nullptr ? owner->busName.c_str() : ""), "owner");
    }

    void lastStartedPlayerOwnsTheSession() {
        const PlayerProcess first("b", titled("First"));
        QVERIFY(read().contains("First"));
        {
            const PlayerProcess second("c", titled("Second"));
            QVERIFY(read().contains("Second"));
        }
        QVERIFY(read().contains("First"));
    }

    void commandsReachThePlayer_data() {
        QTest::addColumn<Command>("command");
        QTest::addColumn<QByteArray>("accepted");
        QTest::addColumn<QString>("reached");
        const auto row = [](const char *player, Command command, const char *accepted,
                            const char *reached) {
            QTest::newRow(player) << command << QByteArray(accepted) << QString::fromUtf8(reached);
        };
        row("{}", Command::Previous, "true", "Previous");
        row(R"({"behaviour": "refuses"})", Command::Next, "false", "Next");
        row(R"({"behaviour": "silent"})", Command::Next, "false", "");
        row(R"({"properties": {"CanGoNext": ["b", false]}})", Command::Next, "false", "");
        row(R"({"properties": {"CanPlay": ["b", true]}})", Command::Rewind, "true",
            "SetPosition /track/1 42250000");
        row(R"({"metadata": {"mpris:trackid": ["s", "spotify:1"]}})", Command::Rewind, "true",
            "Seek -57750000");
    }

    void commandsReachThePlayer() {
        QFETCH(const Command, command);
        PlayerProcess player("scripted", QTest::currentDataTag());
        QTEST(evaluate(*sendScript(command, 42.25)), "accepted");
        QTEST(player.commands(), "reached");
    }

    void playerScriptsReachTheNamedPlayer() {
        installApplication(QStringLiteral("org.example.Tunes"),
                           "Exec=true\nMimeType=audio/mpeg;\nCategories=Audio;Player;");
        PlayerProcess tunes("tunes");
        QCOMPARE(tell("com.spotify.client", "playpause"), QByteArray("failed")); // not running
        PlayerProcess spotify("spotify", R"({"properties": {"CanGoNext": ["b", false]}})");
        QCOMPARE(tell("com.spotify.client", "playpause"), QByteArray("paused"));
        QCOMPARE(tell("com.spotify.client", "forward"), QByteArray("paused"));
        QCOMPARE(tell("com.spotify.client", "next track"), QByteArray("refused"));
        QCOMPARE(tell("com.apple.Music", "next track"), QByteArray("playing"));
        QCOMPARE(tell("com.spotify.client", "do shell script \"true\""), QByteArray("failed"));
        QCOMPARE(tell("x\" & do shell script \"true", "playpause"), QByteArray("failed"));
        QCOMPARE(spotify.commands(), QStringLiteral("Pause Seek 15000000"));
        QCOMPARE(tunes.commands(), QStringLiteral("Next"));
    }

    void scriptsCanReachOnlyPlayers() {
        QCOMPARE(evaluate(QStringLiteral("[typeof native, typeof Duktape].join()")),
                 QByteArray("undefined,undefined"));
        QCOMPARE(evaluate(QStringLiteral("while (true) {}")), QByteArray("failed"));
    }
};

QTEST_GUILESS_MAIN(ScriptHostTest)
#include "ScriptHostTest.moc"
