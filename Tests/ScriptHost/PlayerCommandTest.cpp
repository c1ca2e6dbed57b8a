#include "MediaScripts.h"
#include "PlayerProcess.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>

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

QString dataFile(const char *name) {
    return qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/applications/") +
           QString::fromUtf8(name);
}

void write(const QString &path, const QByteArray &text) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

void install(const char *name, const QByteArray &categories) {
    write(dataFile(name),
          "[Desktop Entry]\nType=Application\nName=X\nExec=true\nMimeType=audio/mpeg;\n"
          "Categories=" +
              categories + "\n");
}

} // namespace

class PlayerCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// Nothing is installed but what the test installs.
    void initTestCase() { qputenv("XDG_DATA_DIRS", "/nowhere/at/all"); }

    void aCommandReachesThePlayer_data();
    void aCommandReachesThePlayer();
    void aCommandThatIsNotDoneIsNotAccepted_data();
    void aCommandThatIsNotDoneIsNotAccepted();
    void aSeekGoesByTrackOrByDifference_data();
    void aSeekGoesByTrackOrByDifference();
    void theSenderStaysForAMoment();
    void aPlayerScriptReachesItsPlayer_data();
    void aPlayerScriptReachesItsPlayer();
    void aPlayerScriptFailsWithoutItsPlayer();
    void theMusicApplicationIsThePersonsDefault();
};

void PlayerCommandTest::aCommandReachesThePlayer_data() {
    QTest::addColumn<Command>("command");
    QTest::addColumn<QString>("method");
    QTest::newRow("play") << Command::Play << QStringLiteral("Play");
    QTest::newRow("pause") << Command::Pause << QStringLiteral("Pause");
    QTest::newRow("next") << Command::Next << QStringLiteral("Next");
    QTest::newRow("previous") << Command::Previous << QStringLiteral("Previous");
}

void PlayerCommandTest::aCommandReachesThePlayer() {
    QFETCH(const Command, command);
    QFETCH(const QString, method);
    PlayerProcess player("scripted");
    QCOMPARE(send(command), QByteArray("true\n"));
    QCOMPARE(player.commands(), QStringList{method});
}

void PlayerCommandTest::aCommandThatIsNotDoneIsNotAccepted_data() {
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<qsizetype>("reached");
    const auto row = [](const char *name, const char *script, qsizetype reached) {
        QTest::newRow(name) << QByteArray(script) << reached;
    };
    row("the player refuses", R"({"behaviour": "refuses"})", 1);
    row("the player cannot", R"({"properties": {"CanGoNext": ["b", false]}})", 0);
    row("the player does not say that it can", R"({"properties": {"CanGoNext": null}})", 0);
    row("the player answers too late", R"({"behaviour": "late", "delay": 2})", 1);
    row("nothing plays", R"({"properties": {"PlaybackStatus": ["s", "Stopped"]}})", 0);
}

void PlayerCommandTest::aCommandThatIsNotDoneIsNotAccepted() {
    QFETCH(const QByteArray, script);
    QFETCH(const qsizetype, reached);
    PlayerProcess player("scripted", script);
    QCOMPARE(send(Command::Next), QByteArray("false\n"));
    QCOMPARE(player.commands().size(), reached);
}

void PlayerCommandTest::aSeekGoesByTrackOrByDifference_data() {
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QStringList>("commands");
    const auto row = [](const char *name, const char *script, const QStringList &commands) {
        QTest::newRow(name) << QByteArray(script) << commands;
    };
    const QStringList byDifference{QStringLiteral("Seek -57750000")};
    row("a track with a path", "{}", {QStringLiteral("SetPosition /track/1 42250000")});
    row("a path as text", R"({"metadata": {"mpris:trackid": ["s", "/a/b"]}})",
        {QStringLiteral("SetPosition /a/b 42250000")});
    row("a track without one", R"({"metadata": {"mpris:trackid": null}})", byDifference);
    row("the path that stands for none",
        R"({"metadata": {"mpris:trackid": ["o", "/org/mpris/MediaPlayer2/TrackList/NoTrack"]}})",
        byDifference);
    row("text that is no path", R"({"metadata": {"mpris:trackid": ["s", "spotify:track:1"]}})",
        byDifference);
    row("a player that cannot", R"({"properties": {"CanSeek": ["b", false]}})", {});
}

void PlayerCommandTest::aSeekGoesByTrackOrByDifference() {
    QFETCH(const QByteArray, script);
    QFETCH(const QStringList, commands);
    PlayerProcess player("scripted", script);
    QCOMPARE(send(Command::Rewind, 42.25), QByteArray("true\n"));
    QCOMPARE(player.commands(), commands);
}

void PlayerCommandTest::theSenderStaysForAMoment() {
    const PlayerProcess player("scripted");
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(send(Command::Next), QByteArray("true\n"));
    QVERIFY(timer.elapsed() >= 600);
}

void PlayerCommandTest::aPlayerScriptReachesItsPlayer_data() {
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("method");
    QTest::addColumn<QByteArray>("state");
    const auto row = [](const char *word, const char *method, const char *state) {
        QTest::newRow(word) << QString::fromUtf8(word) << QString::fromUtf8(method)
                            << QByteArray(state);
    };
    row("playpause", "Pause", "paused\n");
    row("next track", "Next", "playing\n");
    row("previous track", "Previous", "playing\n");
    row("rewind", "Seek -15000000", "playing\n");
    row("forward", "Seek 15000000", "playing\n");
}

void PlayerCommandTest::aPlayerScriptReachesItsPlayer() {
    QFETCH(const QString, word);
    QFETCH(const QString, method);
    QFETCH(const QByteArray, state);
    PlayerProcess other("another");
    PlayerProcess player("spotify");
    QCOMPARE(tell("com.spotify.client", qPrintable(word)), state);
    QCOMPARE(player.commands(), QStringList{method});
    QCOMPARE(other.commands(), QStringList());
}

void PlayerCommandTest::aPlayerScriptFailsWithoutItsPlayer() {
    QCOMPARE(tell("com.spotify.client", "playpause"), QByteArray("failed"));
    const PlayerProcess other("another");
    QCOMPARE(tell("com.spotify.client", "playpause"), QByteArray("failed"));
    const PlayerProcess refuses("spotify", R"({"behaviour": "refuses"})");
    QCOMPARE(tell("com.spotify.client", "playpause"), QByteArray("failed"));
}

void PlayerCommandTest::theMusicApplicationIsThePersonsDefault() {
    install("org.example.Tunes.desktop", "AudioVideo;Audio;Player;");
    install("org.example.Films.desktop", "AudioVideo;Video;Player;");
    PlayerProcess tunes("tunes");
    PlayerProcess films("whatever", R"({"entry": "org.example.Films"})");
    PlayerProcess radio("radio.instance7");
    QCOMPARE(tell("com.apple.Music", "next track"), QByteArray("playing\n"));
    QCOMPARE(tunes.commands(), QStringList{QStringLiteral("Next")});

    install("org.example.Radio.desktop", "AudioVideo;Audio;Player;");
    write(qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/mimeapps.list"),
          "[Default Applications]\naudio/mpeg=org.example.Radio.desktop\n");
    QCOMPARE(tell("com.apple.Music", "next track"), QByteArray("playing\n"));
    QCOMPARE(radio.commands(), QStringList{QStringLiteral("Next")});
    QCOMPARE(films.commands(), QStringList());
}

QTEST_GUILESS_MAIN(PlayerCommandTest)
#include "PlayerCommandTest.moc"
