#include "MediaScripts.h"
#include "PlayerProcess.h"
#include "TestFiles.h"

#include <QElapsedTimer>

#include <csignal>

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

    void readsAPlayer_data() {
        QTest::addColumn<QByteArray>("player");
        QTest::addColumn<QByteArray>("part"); ///< of the reading
        const auto row = [](const QByteArray &player, const char *part) {
            QTest::newRow(player) << player << QByteArray(part);
        };
        row("{}", R"({"elapsedTime":100,"duration":200,"title":"Song","artist":"Singer",)"
                  R"("source":"Player","playing":true})");
        row(R"({"identity": null})", R"("source":"Media")");
        row(R"({"properties": {"Position": ["x", -192606]}})", R"("elapsedTime":0,)");
        row(R"({"properties": {"Position": ["x", -5000000]}})", R"("elapsedTime":null)");
        row(R"({"metadata": {"xesam:artist": ["as", ["A", "", "B"]]}})", R"("artist":"A, B")");
        row(R"({"metadata": {"xesam:artist": ["s", "A"]}})", R"("artist":"A")");
        row(R"({"metadata": {"mpris:length": ["t", 5000000]}})", R"("duration":5,)");
        row(R"({"metadata": {"mpris:length": ["d", 2500000.0]}})", R"("duration":2.5,)");
        row(R"({"properties": {"CanSeek": ["b", false]}})", R"("duration":null)");
        row(titled("Song", "Stopped"), "null");
        row(titled("x\\\" שלום 😀"), "\"x\\\" שלום 😀\"");
    }

    void readsAPlayer() {
        QFETCH(const QByteArray, player);
        const PlayerProcess process("scripted", player);
        QFETCH(const QByteArray, part);
        const QByteArray reading = read();
        QVERIFY2(reading.contains(part), reading.constData());
    }

    void hangingPlayerIsGivenUp() {
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

    void lastToStartOwnsTheSession() {
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
        QElapsedTimer timer;
        timer.start();
        QTEST(evaluate(*sendScript(command, 42.25)), "accepted");
        QVERIFY2(timer.elapsed() >= 600, "the sender stays for a moment");
        QTEST(player.commands(), "reached");
    }

    void playerScriptsReachTheirPlayer() {
        installApplication(QStringLiteral("org.example.Tunes"),
                           "Exec=true\nMimeType=audio/mpeg;\nCategories=Audio;Player;");
        PlayerProcess tunes("tunes");
        QCOMPARE(tell("com.spotify.client", "playpause"), QByteArray("failed")); // does not run
        PlayerProcess spotify("spotify");
        QCOMPARE(tell("com.spotify.client", "playpause"), QByteArray("paused"));
        QCOMPARE(tell("com.spotify.client", "forward"), QByteArray("paused"));
        QCOMPARE(tell("com.apple.Music", "next track"), QByteArray("playing"));
        QCOMPARE(tell("com.spotify.client", "do shell script \"true\""), QByteArray("failed"));
        QCOMPARE(tell("x\" & do shell script \"true", "playpause"), QByteArray("failed"));
        QCOMPARE(spotify.commands(), QStringLiteral("Pause Seek 15000000"));
        QCOMPARE(tunes.commands(), QStringLiteral("Next"));
    }

    void scriptsReachThePlayersOnly() {
        QCOMPARE(evaluate(QStringLiteral("[typeof native, typeof Duktape].join()")),
                 QByteArray("undefined,undefined"));
        QCOMPARE(evaluate(QStringLiteral("while (true) {}")), QByteArray("failed"));
    }

    void frozenBusFailsTheReading() {
        const auto bus = pid_t(qEnvironmentVariableIntValue("PERCHLY_TEST_BUS_PID"));
        QCOMPARE(kill(bus, SIGSTOP), 0);
        const QByteArray reading = read();
        kill(bus, SIGCONT);
        QCOMPARE(reading, QByteArray("failed"));
    }
};

QTEST_GUILESS_MAIN(ScriptHostTest)
#include "ScriptHostTest.moc"
