#include "Announcements.h"
#include "MediaFixture.h"
#include "TestRegistry.h"

#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

const QString spotify = QStringLiteral("com.spotify.client.PlaybackStateChanged");
const QString music = QStringLiteral("com.apple.Music.playerInfo");

QVariantMap information(const QVariant &name, const QVariant &artist, const QVariant &state) {
    return {{QStringLiteral("Name"), name},
            {QStringLiteral("Artist"), artist},
            {QStringLiteral("Player State"), state}};
}

QVariant text(const char *words) {
    return QString::fromUtf8(words);
}

} // namespace

class MediaTrackingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pollsTwoSecondsAfterEachReading();
    void aFailedReadingChangesNothing();
    void startingAgainReplacesThePoll();
    void stoppingEndsThePoll();
    void takesAReadingInOrder();
    void nothingHandsBackToTheAnnouncements();
    void aBrowserWithoutALengthCannotSeek();
    void followsAnnouncements_data();
    void followsAnnouncements();
    void theSessionComesBeforeAnnouncements();
    void aRunningTimerKeepsItsLine();
    void opensMusic();
};

void MediaTrackingTest::pollsTwoSecondsAfterEachReading() {
    MediaFixture fixture;
    fixture.tracking.startMediaMonitoring();
    QCOMPARE(fixture.fake.scriptHost.underWay(), 1);
    fixture.fake.clock.advance(10s);
    QCOMPARE(fixture.fake.scriptHost.started.size(), std::size_t(1)); // never two at a time
    fixture.fake.scriptHost.answer(json(track()));
    QCOMPARE(fixture.model.musicTitle(), track().title);
    fixture.fake.clock.advance(1999ms);
    QCOMPARE(fixture.fake.scriptHost.underWay(), 0);
    fixture.fake.clock.advance(1ms);
    QCOMPARE(fixture.fake.scriptHost.underWay(), 1);
    fixture.fake.scriptHost.answer("null\n");
    QVERIFY(!fixture.model.systemMedia());
}

void MediaTrackingTest::aFailedReadingChangesNothing() {
    MediaFixture fixture;
    fixture.tracking.startMediaMonitoring();
    fixture.fake.scriptHost.answer(json(track()));
    Announcements announcements(fixture.model);
    for (const QByteArray &junk : {QByteArray("[]"), QByteArray("true"), QByteArray()}) {
        fixture.fake.clock.advance(2s);
        fixture.fake.scriptHost.answer(junk);
    }
    fixture.fake.clock.advance(2s);
    fixture.fake.scriptHost.fail();
    fixture.fake.playerNotifications.players = PlayerPresence::Unknown;
    fixture.fake.clock.advance(4s);
    QCOMPARE(announcements.take(), QStringList());
    fixture.fake.playerNotifications.players = PlayerPresence::None;
    fixture.fake.clock.advance(2s);
    QVERIFY(!fixture.model.systemMedia());
    QCOMPARE(fixture.fake.scriptHost.started.size(), std::size_t(5));
}

void MediaTrackingTest::startingAgainReplacesThePoll() {
    MediaFixture fixture;
    fixture.tracking.startMediaMonitoring();
    fixture.tracking.startMediaMonitoring();
    QCOMPARE(fixture.fake.scriptHost.underWay(), 1);
}

void MediaTrackingTest::stoppingEndsThePoll() {
    MediaFixture fixture;
    fixture.tracking.startMediaMonitoring();
    fixture.tracking.stopMediaMonitoring();
    QCOMPARE(fixture.fake.scriptHost.underWay(), 0);
    fixture.fake.clock.advance(10s);
    QCOMPARE(fixture.fake.scriptHost.started.size(), std::size_t(1));
}

void MediaTrackingTest::takesAReadingInOrder() {
    MediaFixture fixture;
    Announcements announcements(fixture.model);
    fixture.tracking.applyMedia(track());
    QCOMPARE(
        announcements.take(),
        (QStringList{QStringLiteral("mediaIsBrowserChanged"), QStringLiteral("mediaCanSeekChanged"),
                     QStringLiteral("systemMediaChanged"), QStringLiteral("musicActiveChanged"),
                     QStringLiteral("playingChanged"), QStringLiteral("musicTitleChanged"),
                     QStringLiteral("musicArtistChanged"), QStringLiteral("mediaSourceChanged")}));
    QVERIFY(fixture.model.mediaIsBrowser() && fixture.model.mediaCanSeek());
    QVERIFY(fixture.model.systemMedia() && fixture.model.musicActive() && fixture.model.playing());
    QCOMPARE(fixture.model.musicArtist(), track().artist);
    QCOMPARE(fixture.model.mediaSource(), track().source);
    QCOMPARE(fixture.model.artist(), QString());
}

void MediaTrackingTest::nothingHandsBackToTheAnnouncements() {
    MediaFixture fixture;
    fixture.tracking.applyMedia(track());
    fixture.tracking.applyMedia(std::nullopt);
    QVERIFY(!fixture.model.musicActive());
    QCOMPARE(fixture.model.musicTitle(), QStringLiteral("Music"));
    QCOMPARE(fixture.model.musicArtist(), QString());
    QCOMPARE(fixture.model.mediaSource(), QStringLiteral("Media"));
    Q_EMIT fixture.fake.playerNotifications.received(
        music, information(text("A"), text("B"), text("Playing")));
    QCOMPARE(fixture.model.mediaSource(), QStringLiteral("Apple Music"));
    QVERIFY(fixture.model.musicActive());
}

void MediaTrackingTest::aBrowserWithoutALengthCannotSeek() {
    MediaFixture fixture;
    MediaActivity activity = track();
    activity.duration.reset();
    fixture.tracking.applyMedia(activity);
    QVERIFY(fixture.model.mediaIsBrowser());
    QVERIFY(!fixture.model.mediaCanSeek());
}

void MediaTrackingTest::followsAnnouncements_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariantMap>("facts");
    QTest::addColumn<QStringList>("shown"); // source, player, title, artist
    QTest::addColumn<bool>("playing");
    const QString player = QStringLiteral("com.spotify.client");
    const QString other = QStringLiteral("com.apple.Music");
    QTest::newRow("a paused player")
        << spotify << information(text("Song"), text("Singer"), text("Paused"))
        << QStringList{QStringLiteral("Spotify"), player, QStringLiteral("Song"),
                       QStringLiteral("Singer")}
        << false;
    QTest::newRow("a playing one")
        << music << information(text("Song"), text("Singer"), text("Playing"))
        << QStringList{QStringLiteral("Apple Music"), other, QStringLiteral("Song"),
                       QStringLiteral("Singer")}
        << true;
    QTest::newRow("values that are no strings")
        << music << information(7, QStringList{QStringLiteral("Singer")}, true)
        << QStringList{QStringLiteral("Apple Music"), other, QStringLiteral("Music"), QString()}
        << false;
    QTest::newRow("no values") << spotify << QVariantMap()
                               << QStringList{QStringLiteral("Spotify"), player,
                                              QStringLiteral("Music"), QString()}
                               << false;
}

void MediaTrackingTest::followsAnnouncements() {
    QFETCH(const QString, name);
    QFETCH(const QVariantMap, facts);
    QFETCH(const QStringList, shown);
    MediaFixture fixture;
    Q_EMIT fixture.fake.playerNotifications.received(name, facts);
    const ShelfModel &model = fixture.model;
    QCOMPARE((QStringList{model.mediaSource(), model.playerID(), model.musicTitle(),
                          model.musicArtist()}),
             shown);
    QTEST(model.playing(), "playing");
    QCOMPARE(model.activity(), shown.at(2));
    QCOMPARE(model.artist(), shown.at(3));
    QVERIFY(model.musicActive());
}

void MediaTrackingTest::theSessionComesBeforeAnnouncements() {
    MediaFixture fixture;
    fixture.tracking.applyMedia(track());
    Announcements announcements(fixture.model);
    Q_EMIT fixture.fake.playerNotifications.received(
        spotify, information(text("A"), text("B"), text("Playing")));
    QCOMPARE(announcements.take(), QStringList());
    QCOMPARE(fixture.model.playerID(), QStringLiteral("com.apple.Music"));
}

void MediaTrackingTest::aRunningTimerKeepsItsLine() {
    MediaFixture fixture;
    fixture.model.focus();
    const QString line = fixture.model.activity();
    Q_EMIT fixture.fake.playerNotifications.received(
        music, information(text("Song"), text("Singer"), text("Playing")));
    QCOMPARE(fixture.model.musicTitle(), QStringLiteral("Song"));
    QVERIFY(fixture.model.playing());
    QCOMPARE(fixture.model.activity(), line);
    QCOMPARE(fixture.model.artist(), QString());
}

void MediaTrackingTest::opensMusic() {
    MediaFixture fixture;
    fixture.tracking.applyMedia(track());
    fixture.tracking.applyMedia(std::nullopt);
    fixture.model.music();
    QCOMPARE(fixture.fake.musicPlayer.opened, 1);
    QVERIFY(fixture.model.musicActive());
    QVERIFY(!fixture.model.systemMedia() && !fixture.model.mediaCanSeek());
    QCOMPARE(fixture.model.mediaSource(), QStringLiteral("Apple Music"));
    QCOMPARE(fixture.model.playerID(), QStringLiteral("com.apple.Music"));
    QCOMPARE(fixture.model.activity(), QStringLiteral("Music is open"));
}

static const RegisteredTest<MediaTrackingTest> registered;
#include "MediaTrackingTest.moc"
