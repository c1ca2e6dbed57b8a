#include "PlayerProcess.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>

using namespace perchly;

namespace {

QString memoryPath() {
    return qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/perchly-players");
}

QString field(const char *name) {
    return readSession().toObject().value(QLatin1StringView(name)).toString();
}

constexpr const char *paused = R"({"properties": {"PlaybackStatus": ["s", "Paused"]}})";

QByteArray titled(const char *title, const char *status) {
    return QByteArray(R"({"metadata": {"xesam:title": ["s", ")") + title +
           R"("]}, "properties": {"PlaybackStatus": ["s", ")" + status + R"("]}})";
}

} // namespace

class PlayerReadingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QFile::remove(memoryPath()); }

    void saysNullWithoutAPlayer();
    void readsWhatAPlayerSays_data();
    void readsWhatAPlayerSays();
    void findsNoTrack_data();
    void findsNoTrack();
    void hugeTextsAreCutBetweenCharacters();
    void textsComeThroughAsTheyAre_data();
    void textsComeThroughAsTheyAre();
    void aSilentPlayerDoesNotHoldUpAPlayingOne();
    void aSilentPlayerIsGivenUp();
    void theLastToStartOwnsTheSession();
    void theRepeaterIsNoPlayer();
    void theMemoryIsAPrivateFileAndNeverALink();
};

void PlayerReadingTest::saysNullWithoutAPlayer() {
    QVERIFY(readSession().isNull());
    QVERIFY(!QFile::exists(memoryPath()));
}

void PlayerReadingTest::readsWhatAPlayerSays_data() {
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("value");
    const auto row = [](const char *name, const char *script, const char *key,
                        const QJsonValue &value) {
        QTest::newRow(name) << QByteArray(script) << QString::fromUtf8(key) << value;
    };
    const QJsonValue absent(QJsonValue::Null);
    row("the title", "{}", "title", QStringLiteral("Song"));
    row("the name for people", "{}", "source", QStringLiteral("Player"));
    row("no name for people", R"({"identity": null})", "source", QStringLiteral("Media"));
    row("playing", "{}", "playing", true);
    row("paused", paused, "playing", false);
    row("microseconds become seconds", "{}", "elapsedTime", 100);
    row("several artists", R"({"metadata": {"xesam:artist": ["as", ["A", "", "B"]]}})", "artist",
        QStringLiteral("A, B"));
    row("one artist in place of a list", R"({"metadata": {"xesam:artist": ["s", "A"]}})", "artist",
        QStringLiteral("A"));
    row("an artist of another type", R"({"metadata": {"xesam:artist": ["i", 3]}})", "artist",
        QStringLiteral(""));
    row("no artist", R"({"metadata": {"xesam:artist": null}})", "artist", QStringLiteral(""));
    row("a length of an unsigned type", R"({"metadata": {"mpris:length": ["t", 5000000]}})",
        "duration", 5);
    row("a length with a fraction", R"({"metadata": {"mpris:length": ["d", 2500000.0]}})",
        "duration", 2.5);
    row("a length of nothing", R"({"metadata": {"mpris:length": ["x", 0]}})", "duration", absent);
    row("a negative length", R"({"metadata": {"mpris:length": ["x", -1]}})", "duration", absent);
    row("a length that is text", R"({"metadata": {"mpris:length": ["s", "5"]}})", "duration",
        absent);
    row("a timeline that cannot be moved along", R"({"properties": {"CanSeek": ["b", false]}})",
        "duration", absent);
    row("a negative position", R"({"properties": {"Position": ["x", -9]}})", "elapsedTime", absent);
    row("no position", R"({"properties": {"Position": null}})", "elapsedTime", absent);
    row("many other facts", R"({"many_keys": 2000})", "title", QStringLiteral("Song"));
}

void PlayerReadingTest::readsWhatAPlayerSays() {
    QFETCH(const QByteArray, script);
    QFETCH(const QString, key);
    QFETCH(const QJsonValue, value);
    const PlayerProcess player("scripted", script);
    QVERIFY(player.isReady());
    QCOMPARE(readSession().toObject().value(key), value);
}

void PlayerReadingTest::findsNoTrack_data() {
    QTest::addColumn<QByteArray>("script");
    const auto row = [](const char *name, const char *script) {
        QTest::newRow(name) << QByteArray(script);
    };
    row("a stopped player", R"({"properties": {"PlaybackStatus": ["s", "Stopped"]}})");
    row("a state that nobody knows", R"({"properties": {"PlaybackStatus": ["s", "playing"]}})");
    row("a state of another type", R"({"properties": {"PlaybackStatus": ["u", 1]}})");
    row("no title", R"({"metadata": {"xesam:title": null}})");
    row("an empty title", R"({"metadata": {"xesam:title": ["s", ""]}})");
    row("a title of spaces and line feeds", R"({"metadata": {"xesam:title": ["s", " \n\t "]}})");
    row("a title that is a list", R"({"metadata": {"xesam:title": ["as", ["Song"]]}})");
    row("metadata that is text", R"({"properties": {"Metadata": ["s", "Song"]}})");
    row("metadata of numbers", R"({"properties": {"Metadata": ["a{si}", {"xesam:title": 1}]}})");
}

void PlayerReadingTest::findsNoTrack() {
    QFETCH(const QByteArray, script);
    const PlayerProcess player("scripted", script);
    QVERIFY(player.isReady());
    QVERIFY(readSession().isNull());
}

void PlayerReadingTest::hugeTextsAreCutBetweenCharacters() {
    {
        const PlayerProcess player("scripted", R"({"title_bytes": 20000000})");
        QCOMPARE(field("title").size(), 2048);
    }
    const QByteArray flags =
        QStringLiteral("a").toUtf8() + QStringLiteral("🎵").repeated(600).toUtf8();
    const PlayerProcess player("scripted", titled(flags.constData(), "Playing"));
    QCOMPARE(field("title"), QStringLiteral("a") + QStringLiteral("🎵").repeated(511));
}

void PlayerReadingTest::textsComeThroughAsTheyAre_data() {
    QTest::addColumn<QByteArray>("sent");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *name, const char *sent, const char *shown) {
        QTest::newRow(name) << QByteArray(sent) << QString::fromUtf8(shown);
    };
    row("quotes and a command", R"(x\" & do shell script \"reboot)",
        R"(x" & do shell script "reboot)");
    row("script", R"('});throw 1;//${x}`)", R"('});throw 1;//${x}`)");
    row("beyond the basic plane", "😀𝄞 👩‍👩‍👧", "😀𝄞 👩‍👩‍👧");
    row("right to left", "שלום عليكم", "שלום عليكم");
    row("control characters become spaces", R"(a\u0007b\u001b[31m\nc\u0085d)", "a b [31m c d");
    row("line separators become spaces", "a\u2028b\u2029c", "a b c");
}

void PlayerReadingTest::textsComeThroughAsTheyAre() {
    QFETCH(const QByteArray, sent);
    QFETCH(const QString, shown);
    const PlayerProcess player("scripted", titled(sent.constData(), "Playing"));
    QVERIFY(player.isReady());
    QCOMPARE(field("title"), shown);
}

void PlayerReadingTest::aSilentPlayerDoesNotHoldUpAPlayingOne() {
    const PlayerProcess silent("a_silent", R"({"behaviour": "silent"})");
    const PlayerProcess player("playing");
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(field("title"), QStringLiteral("Song"));
    QVERIFY2(timer.elapsed() < 600, qPrintable(QString::number(timer.elapsed())));
}

void PlayerReadingTest::aSilentPlayerIsGivenUp() {
    const PlayerProcess silent("a_silent", R"({"behaviour": "silent"})");
    const PlayerProcess other("paused", paused);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(field("title"), QStringLiteral("Song"));
    QVERIFY(timer.elapsed() >= 950 && timer.elapsed() < 2000);
}

void PlayerReadingTest::theLastToStartOwnsTheSession() {
    PlayerProcess first("b_first", titled("First", "Playing"));
    QCOMPARE(field("title"), QStringLiteral("First"));
    const PlayerProcess second("a_second", titled("Second", "Paused"));
    QCOMPARE(field("title"), QStringLiteral("First"));
    {
        const PlayerProcess third("c_third", titled("Third", "Playing"));
        QCOMPARE(field("title"), QStringLiteral("Third"));
        QCOMPARE(field("title"), QStringLiteral("Third")); // and keeps it
        const PlayerProcess stopped("d_stopped", titled("Fourth", "Stopped"));
        QCOMPARE(field("title"), QStringLiteral("Third"));
    }
    QCOMPARE(field("title"), QStringLiteral("First"));
}

void PlayerReadingTest::theRepeaterIsNoPlayer() {
    const PlayerProcess repeater("playerctld");
    QVERIFY(readSession().isNull());
}

void PlayerReadingTest::theMemoryIsAPrivateFileAndNeverALink() {
    const PlayerProcess player("scripted");
    const QString victim = qEnvironmentVariable("HOME") + QStringLiteral("/victim");
    QFile file(victim);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("-org.mpris.MediaPlayer2.other\n");
    file.close();
    QVERIFY(QFile::link(victim, memoryPath()));
    QCOMPARE(field("title"), QStringLiteral("Song"));
    QVERIFY(!QFileInfo(memoryPath()).isSymLink());
    QCOMPARE(QFileInfo(memoryPath()).permissions() & (QFile::ReadGroup | QFile::ReadOther),
             QFile::Permissions());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("-org.mpris.MediaPlayer2.other\n"));
}

QTEST_GUILESS_MAIN(PlayerReadingTest)
#include "PlayerReadingTest.moc"
