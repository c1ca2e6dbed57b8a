#include "MediaActivityReader.h"
#include "MediaFixture.h"
#include "MediaScripts.h"
#include "TestRegistry.h"

#include <QCryptographicHash>
#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

using Command = MediaPlaybackCommand;

struct ReaderFixture {
    FakeHosts fake;
    MediaActivityReader reader{fake.scriptHost, fake.playerNotifications, fake.clock};
};

} // namespace

class MediaReaderTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void scriptsAreTheProtocolsOwn() {
        const auto digest = [](const QString &script) {
            return QCryptographicHash::hash(script.toUtf8(), QCryptographicHash::Sha1).toHex();
        };
        QCOMPARE(digest(readScript()), QByteArray("5a9e5d54ff7ae64f51a6b17d37d5402d0cbda5f6"));
        QCOMPARE(digest(*sendScript(Command::Play, {})),
                 QByteArray("c0d838fc9a37bf79124a5901d325fdd88a16e959"));
        QCOMPARE(digest(*sendScript(Command::Pause, {})),
                 QByteArray("5982a9c74d420723079a692288ec68e94641ac94"));
        QCOMPARE(digest(*sendScript(Command::Next, {})),
                 QByteArray("3c739ad3d903a70eb16ced7c508bfc9ed75a3395"));
        QCOMPARE(digest(*sendScript(Command::Previous, 7)),
                 QByteArray("17b8f850d6ae69a2599b3f9a881263b98bcc7d96"));
        QCOMPARE(digest(*sendScript(Command::Rewind, 42)),
                 QByteArray("4d85ec72662f48fbd4775a534a73c45a8742bcf6"));
        QCOMPARE(playerScript(QStringLiteral("com.spotify.client"), QStringLiteral("next track")),
                 QStringLiteral("tell application id \"com.spotify.client\"\nnext track\n"
                                "return player state as string\nend tell"));
    }

    void positionsReadBackTheSame() {
        const auto places = [](double position) {
            const QString script = *sendScript(Command::Forward, position);
            return script.section(QStringLiteral("MRMediaRemoteSetElapsedTime("), 1, 1)
                .section(u')', 0, 0);
        };
        QCOMPARE(places(42), QStringLiteral("42.0"));
        QCOMPARE(places(187.25), QStringLiteral("187.25"));
        QCOMPARE(places(1e-05), QStringLiteral("1e-05"));
        QCOMPARE(places(100000), QStringLiteral("100000.0"));
    }

    void startsNothingWithoutAPlayer_data() {
        QTest::addColumn<PlayerPresence>("players");
        QTest::addColumn<bool>("runnable");
        QTest::addColumn<bool>("succeeds");
        QTest::newRow("no player is a reading of nothing") << PlayerPresence::None << true << true;
        QTest::newRow("nobody to ask is a failure") << PlayerPresence::Unknown << true << false;
        QTest::newRow("no companion is a failure") << PlayerPresence::Some << false << false;
    }

    void startsNothingWithoutAPlayer() {
        QFETCH(const PlayerPresence, players);
        QFETCH(const bool, runnable);
        ReaderFixture fixture;
        fixture.fake.playerNotifications.players = players;
        fixture.fake.scriptHost.runnable = runnable;
        std::optional<MediaReading> got;
        const Task task = fixture.reader.read([&](const MediaReading &reading) { got = reading; });
        QVERIFY(!got);
        fixture.fake.clock.advance(0ms);
        QVERIFY(got && !got->activity);
        QTEST(got->succeeded, "succeeds");
        QVERIFY(fixture.fake.scriptHost.started.empty());
    }

    void aSeekWithoutAPositionIsNotSent() {
        for (const std::optional<double> position :
             {std::optional<double>(), std::optional(std::numeric_limits<double>::infinity())}) {
            ReaderFixture fixture;
            std::optional<bool> accepted = true;
            const Task task = fixture.reader.send(
                Command::Rewind, position, [&](std::optional<bool> flag) { accepted = flag; });
            fixture.fake.clock.advance(0ms);
            QVERIFY(accepted == false);
            QVERIFY(fixture.fake.scriptHost.started.empty());
        }
    }
};

static const RegisteredTest<MediaReaderTest> registeredMediaReaderTest;
#include "MediaReaderTest.moc"
