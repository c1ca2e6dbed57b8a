#include "PlayerProcess.h"
#include "TestFiles.h"

#include <QElapsedTimer>

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

    void saysNullWithoutAPlayer() {
        QVERIFY(readSession().isNull());
        QVERIFY(!QFile::exists(memoryPath()));
    }

    void readsWhatAPlayerSays_data() {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QJsonValue>("value");
        const auto row = [](const char *name, const QByteArray &script, const char *key,
                            const QJsonValue &value) {
            QTest::newRow(name) << script << QString::fromUtf8(key) << value;
        };
        const QJsonValue absent(QJsonValue::Null);
        row("the title", "{}", "title", QStringLiteral("Song"));
        row("the name for people", "{}", "source", QStringLiteral("Player"));
        row("no name for people", R"({"identity": null})", "source", QStringLiteral("Media"));
        row("microseconds become seconds", "{}", "elapsedTime", 100);
        row("a little before the start is the start",
            R"({"properties": {"Position": ["x", -192606]}})", "elapsedTime", 0);
        row("far before the start is nowhere", R"({"properties": {"Position": ["x", -5000000]}})",
            "elapsedTime", absent);
        row("several artists", R"({"metadata": {"xesam:artist": ["as", ["A", "", "B"]]}})",
            "artist", QStringLiteral("A, B"));
        row("a length of an unsigned type", R"({"metadata": {"mpris:length": ["t", 5000000]}})",
            "duration", 5);
        row("a length with a fraction", R"({"metadata": {"mpris:length": ["d", 2500000.0]}})",
            "duration", 2.5);
        row("a timeline that cannot be moved along", R"({"properties": {"CanSeek": ["b", false]}})",
            "duration", absent);
        const QJsonValue none(QJsonValue::Undefined);
        row("a stopped player", R"({"properties": {"PlaybackStatus": ["s", "Stopped"]}})", "title",
            none);
        row("no title", R"({"metadata": {"xesam:title": null}})", "title", none);
        const auto title = [&row](const char *name, const char *sent, const char *shown) {
            row(name, titled(sent, "Playing"), "title", QString::fromUtf8(shown));
        };
        title("quotes and a command", R"(x\" & do shell script \"reboot)",
              R"(x" & do shell script "reboot)");
        title("right to left and beyond the basic plane", "שלום 😀𝄞 👩‍👩‍👧",
              "שלום 😀𝄞 👩‍👩‍👧");
        title("control characters and line separators become spaces", R"(a\u0007b\u2028c)",
              "a b c");
    }

    void readsWhatAPlayerSays() {
        QFETCH(const QByteArray, script);
        QFETCH(const QString, key);
        QFETCH(const QJsonValue, value);
        const PlayerProcess player("scripted", script);
        QVERIFY(player.isReady());
        QCOMPARE(readSession().toObject().value(key), value);
    }

    void hugeTextsAreCutBetweenCharacters() {
        const QByteArray flags = "a" + QStringLiteral("🎵").repeated(600).toUtf8();
        const PlayerProcess player("scripted", titled(flags.constData(), "Playing"));
        QCOMPARE(field("title"), QStringLiteral("a") + QStringLiteral("🎵").repeated(511));
    }

    void aSilentPlayerDoesNotHoldUpAPlayingOneAndIsGivenUp() {
        const PlayerProcess silent("a_silent", R"({"behaviour": "silent"})");
        const PlayerProcess halted("paused", paused);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(field("title"), QStringLiteral("Song"));
        QVERIFY(timer.elapsed() >= 950 && timer.elapsed() < 2000);
        const PlayerProcess player("playing");
        timer.start();
        QCOMPARE(field("title"), QStringLiteral("Song"));
        QVERIFY2(timer.elapsed() < 900, qPrintable(QString::number(timer.elapsed())));
    }

    void theLastToStartOwnsTheSession() {
        PlayerProcess first("b_first", titled("First", "Playing"));
        QCOMPARE(field("title"), QStringLiteral("First"));
        const PlayerProcess second("a_second", titled("Second", "Paused"));
        QCOMPARE(field("title"), QStringLiteral("First"));
        {
            const PlayerProcess third("c_third", titled("Third", "Playing"));
            QCOMPARE(field("title"), QStringLiteral("Third"));
        }
        QCOMPARE(field("title"), QStringLiteral("First"));
    }

    void theMemoryIsAPrivateFileAndNeverALink() {
        const PlayerProcess player("scripted");
        const QString victim = qEnvironmentVariable("HOME") + QStringLiteral("/victim");
        writeFile(victim, "-org.mpris.MediaPlayer2.other\n");
        QVERIFY(QFile::link(victim, memoryPath()));
        QCOMPARE(field("title"), QStringLiteral("Song"));
        QVERIFY(!QFileInfo(memoryPath()).isSymLink());
        QVERIFY(!(QFileInfo(memoryPath()).permissions() & (QFile::ReadGroup | QFile::ReadOther)));
        QCOMPARE(readFile(victim), QByteArray("-org.mpris.MediaPlayer2.other\n"));
    }
};

QTEST_GUILESS_MAIN(PlayerReadingTest)
#include "PlayerReadingTest.moc"
