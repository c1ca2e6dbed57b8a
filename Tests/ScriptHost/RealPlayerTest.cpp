#include "PlayerProcess.h"
#include "RealMedia.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

using namespace perchly;

namespace {

QByteArray silence(int seconds) {
    constexpr int rate = 8000;
    const auto little = [](quint32 number, int bytes) {
        QByteArray text;
        for (int byte = 0; byte < bytes; ++byte) {
            text.append(char(number >> (8 * byte)));
        }
        return text;
    };
    const auto size = quint32(rate * seconds);
    return "RIFF" + little(36 + size, 4) + "WAVEfmt " + little(16, 4) + little(1, 2) +
           little(1, 2) + little(rate, 4) + little(rate, 4) + little(1, 2) + little(8, 2) + "data" +
           little(size, 4) + QByteArray(size, char(0x80));
}

/// mpv with two tracks, on the bus.
class Mpv {
public:
    Mpv() {
        QStringList arguments{QStringLiteral("--no-config"), QStringLiteral("--no-terminal"),
                              QStringLiteral("--ao=null"), QStringLiteral("--no-video"),
                              QStringLiteral("--script=" MPV_MPRIS)};
        for (const char *name : {"first", "second"}) {
            QFile file(QDir::tempPath() + u'/' + QString::fromUtf8(name) + QStringLiteral(".wav"));
            if (file.open(QIODevice::WriteOnly)) {
                file.write(silence(120));
            }
            arguments.append(file.fileName());
        }
        m_process.start(QStringLiteral("mpv"), arguments);
    }
    ~Mpv() {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
};

double position() {
    return readSession().toObject().value(QStringLiteral("elapsedTime")).toDouble();
}

} // namespace

class RealPlayerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void mpvIsFollowedAndObeys();
    void everyFailureHasItsSentence_data();
    void everyFailureHasItsSentence();
    void aTrackThatChangedMeanwhileIsNotCommanded();
    void spotifyIsToldWithoutASession();
    void aReadingNeverHoldsUpTheProgram();
};

void RealPlayerTest::mpvIsFollowedAndObeys() {
    const Mpv mpv;
    RealMedia media;
    const ShelfModel &model = media.model;
    QVERIFY(media.waitForSession(QStringLiteral("first.wav")));
    QCOMPARE(model.mediaSource(), QStringLiteral("mpv"));
    QVERIFY(model.playing() && model.mediaCanSeek() && !model.mediaIsBrowser());

    QVERIFY(media.press("playpause"));
    QCOMPARE(model.controlError(), QString());
    QVERIFY(!model.playing());
    const double paused = position();

    QVERIFY(media.press("forward"));
    QCOMPARE(model.controlError(), QString());
    QVERIFY(qAbs(position() - (paused + 15)) < 1);
    QVERIFY(media.press("rewind"));
    QCOMPARE(model.controlError(), QString());
    QVERIFY(qAbs(position() - paused) < 1);

    QVERIFY(media.press("playpause"));
    QVERIFY(model.playing());
    QVERIFY(media.press("next track"));
    QCOMPARE(model.controlError(), QString());
    QVERIFY(media.waitForSession(QStringLiteral("second.wav")));
    QVERIFY(media.press("previous track"));
    QVERIFY(media.waitForSession(QStringLiteral("first.wav")));
}

void RealPlayerTest::everyFailureHasItsSentence_data() {
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("error");
    const QString pause = QStringLiteral("playpause");
    const QString notReceived =
        QStringLiteral("x\" & do shell script \"y could not receive this playback command.");
    QTest::newRow("a player that refuses, with a hostile name")
        << QByteArray(R"({"behaviour": "refuses", "identity": "x\" & do shell script \"y"})")
        << pause << notReceived;
    QTest::newRow("a player that ignores")
        << QByteArray(R"({"behaviour": "ignores"})") << pause
        << QStringLiteral("Player did not apply this media command. The tab may be closed, "
                          "buffering, or unable to accept remote controls. Open the player and try "
                          "again.");
    QTest::newRow("a player without a timeline")
        << QByteArray(R"({"metadata": {"mpris:length": null}})") << QStringLiteral("forward")
        << QStringLiteral("This player does not expose a seekable timeline.");
    QTest::newRow("a player that ignores a skip")
        << QByteArray(R"({"behaviour": "ignores"})") << QStringLiteral("next track") << QString();
}

void RealPlayerTest::everyFailureHasItsSentence() {
    QFETCH(const QByteArray, script);
    QFETCH(const QString, word);
    const PlayerProcess player("scripted", script);
    RealMedia media;
    QVERIFY(media.waitForSession(QStringLiteral("Song")));
    QVERIFY(media.press(qPrintable(word)));
    QTEST(media.model.controlError(), "error");
    QVERIFY(media.model.playing());
}

void RealPlayerTest::aTrackThatChangedMeanwhileIsNotCommanded() {
    PlayerProcess player("scripted");
    RealMedia media;
    QVERIFY(media.waitForSession(QStringLiteral("Song")));
    media.tracking.applyMedia(MediaActivity{.title = QStringLiteral("Before"),
                                            .artist = {},
                                            .source = QStringLiteral("Player"),
                                            .elapsedTime = {},
                                            .duration = {}});
    QVERIFY(media.press("playpause"));
    QCOMPARE(
        media.model.controlError(),
        QStringLiteral("The media session changed. Wait for the current player to appear, then "
                       "try again."));
    QCOMPARE(player.commands(), QStringList());
}

void RealPlayerTest::spotifyIsToldWithoutASession() {
    PlayerProcess player("spotify");
    RealMedia media;
    media.tracking.stopMediaMonitoring();
    Q_EMIT media.notifications.received(
        QStringLiteral("com.spotify.client.PlaybackStateChanged"),
        {{QStringLiteral("Player State"), QStringLiteral("Playing")}});
    QVERIFY(media.press("playpause"));
    QCOMPARE(media.model.controlError(), QString());
    QVERIFY(!media.model.playing());
    QCOMPARE(player.commands(), QStringList{QStringLiteral("Pause")});
    media.model.setPlayerID(QStringLiteral("com.apple.Music")); // which does not run
    QVERIFY(media.press("playpause"));
    QCOMPARE(media.model.controlError(),
             QStringLiteral("Allow Perchly in System Settings → Privacy & Security → Automation, "
                            "then try again."));
}

void RealPlayerTest::aReadingNeverHoldsUpTheProgram() {
    const PlayerProcess player("scripted", R"({"behaviour": "silent"})");
    RealMedia media;
    QElapsedTimer timer;
    qint64 longest = 0;
    timer.start();
    for (int turn = 0; turn < 300; ++turn) {
        const qint64 before = timer.elapsed();
        QTest::qWait(5);
        longest = std::max(longest, timer.elapsed() - before);
    }
    QVERIFY2(longest < 200, qPrintable(QString::number(longest)));
    QVERIFY(!media.model.systemMedia());
}

QTEST_GUILESS_MAIN(RealPlayerTest)
#include "RealPlayerTest.moc"
