#include "MediaFixture.h"
#include "TestRegistry.h"

#include <QTest>

#include <limits>

using namespace perchly;

namespace {

using Time = std::optional<double>;
using Command = MediaPlaybackCommand;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

class MediaActivityTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void decodes_data();
    void decodes();
    void decodesEveryField();
    void knowsBrowsersByName_data();
    void knowsBrowsersByName();
    void seeksWithinTheTrack_data();
    void seeksWithinTheTrack();
    void onlySeeksHaveATarget();
    void resolvesWords();
};

void MediaActivityTest::decodes_data() {
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<bool>("succeeds");
    QTest::addColumn<bool>("finds");
    const QByteArray whole = R"({"title":"T","artist":"","source":"Safari","playing":false)";
    QTest::newRow("null and a line feed are nothing") << QByteArray("null\n") << true << false;
    QTest::newRow("null times") << whole + R"(,"elapsedTime":null,"duration":null})" << true
                                << true;
    QTest::newRow("no times") << whole + "}\n" << true << true;
    QTest::newRow("a key that nobody knows") << whole + R"(,"album":{}})" << true << true;
    QTest::newRow("a time of another type") << whole + R"(,"duration":"200"})" << false << false;
    QTest::newRow("no source") << QByteArray(R"({"title":"T","artist":"","playing":true})") << false
                               << false;
    QTest::newRow("a number where a flag belongs")
        << QByteArray(R"({"title":"T","artist":"","source":"S","playing":1})") << false << false;
    QTest::newRow("a null title")
        << QByteArray(R"({"title":null,"artist":"","source":"S","playing":true})") << false
        << false;
    QTest::newRow("a list") << QByteArray("[null]") << false << false;
    QTest::newRow("no output") << QByteArray() << false << false;
    QTest::newRow("junk") << QByteArray("nullnull") << false << false;
    QTest::newRow("half an object") << whole << false << false;
    QTest::newRow("bytes that are no text")
        << QByteArray("{\"title\":\"\xC3\x28\",\"artist\":\"\",\"source\":\"S\",\"playing\":true}")
        << false << false;
}

void MediaActivityTest::decodes() {
    QFETCH(const QByteArray, output);
    QFETCH(const bool, succeeds);
    QFETCH(const bool, finds);
    const MediaReading reading = decodeMediaReading(output);
    QCOMPARE(reading.succeeded, succeeds);
    QCOMPARE(reading.activity.has_value(), finds);
    if (finds) {
        QCOMPARE(reading.activity->title, QStringLiteral("T"));
        QVERIFY(!reading.activity->elapsedTime && !reading.activity->duration);
        QVERIFY(reading.activity->isBrowser());
    }
}

void MediaActivityTest::decodesEveryField() {
    MediaActivity activity = track();
    activity.title = QStringLiteral("x\" & do shell script \"😀 \u202Eשלום\u0007");
    QCOMPARE(*decodeMediaReading(json(activity)).activity, activity);
}

void MediaActivityTest::knowsBrowsersByName_data() {
    QTest::addColumn<QString>("source");
    QTest::addColumn<bool>("browser");
    const auto row = [](const char *source, bool browser) {
        QTest::newRow(source) << QString::fromUtf8(source) << browser;
    };
    row("Mozilla Firefox", true);
    row("CHROMIUM", true);
    row("Microsoft Edge", true);
    row("Zen Browser", true);
    row("Zen", false);
    row("Arc", true);
    row("mpv", false);
    row("", false);
}

void MediaActivityTest::knowsBrowsersByName() {
    QFETCH(const QString, source);
    MediaActivity activity = track();
    activity.source = source;
    QTEST(activity.isBrowser(), "browser");
}

void MediaActivityTest::seeksWithinTheTrack_data() {
    QTest::addColumn<bool>("forward");
    QTest::addColumn<Time>("elapsed");
    QTest::addColumn<Time>("duration");
    QTest::addColumn<Time>("target");
    QTest::newRow("back from the middle") << false << Time(100) << Time(200) << Time(85);
    QTest::newRow("back near the start") << false << Time(10) << Time(200) << Time(0);
    QTest::newRow("forward") << true << Time(100.5) << Time(200) << Time(115.5);
    QTest::newRow("forward near the end") << true << Time(195) << Time(200) << Time(200);
    QTest::newRow("back from beyond the end") << false << Time(300) << Time(200) << Time(200);
    QTest::newRow("forward from before the start") << true << Time(-40) << Time(200) << Time(0);
    QTest::newRow("no position") << true << Time() << Time(200) << Time();
    QTest::newRow("an infinite position") << true << Time(infinity) << Time(200) << Time();
    QTest::newRow("no length") << true << Time(1) << Time() << Time();
    QTest::newRow("a length of nothing") << true << Time(1) << Time(0) << Time();
    QTest::newRow("an infinite length") << true << Time(1) << Time(infinity) << Time();
    QTest::newRow("a length that is no number") << true << Time(1) << Time(notANumber) << Time();
}

void MediaActivityTest::seeksWithinTheTrack() {
    QFETCH(const bool, forward);
    QFETCH(const Time, elapsed);
    QFETCH(const Time, duration);
    QFETCH(const Time, target);
    MediaActivity activity = track();
    activity.elapsedTime = elapsed;
    activity.duration = duration;
    QVERIFY(seekTarget(forward ? Command::Forward : Command::Rewind, activity) == target);
}

void MediaActivityTest::onlySeeksHaveATarget() {
    for (const Command command :
         {Command::Play, Command::Pause, Command::Next, Command::Previous}) {
        QVERIFY(!seekTarget(command, track()));
    }
}

void MediaActivityTest::resolvesWords() {
    const auto resolved = [](const char *word, bool playing) {
        return resolvePlaybackCommand(QString::fromUtf8(word), playing);
    };
    QVERIFY(resolved("playpause", true) == Command::Pause);
    QVERIFY(resolved("playpause", false) == Command::Play);
    QVERIFY(resolved("next track", false) == Command::Next);
    QVERIFY(resolved("previous track", true) == Command::Previous);
    QVERIFY(resolved("rewind", true) == Command::Rewind);
    QVERIFY(resolved("forward", true) == Command::Forward);
    QVERIFY(!resolved("stop", true));
    QVERIFY(!resolved("Next Track", true));
}

static const RegisteredTest<MediaActivityTest> registered;
#include "MediaActivityTest.moc"
