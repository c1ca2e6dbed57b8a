#include "MediaFixture.h"
#include "TestRegistry.h"

#include <QTest>

#include <limits>

using namespace perchly;

namespace {

using Time = std::optional<double>;
using Command = MediaPlaybackCommand;

} // namespace

class MediaActivityTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void decodes_data() {
        QTest::addColumn<QByteArray>("output");
        QTest::addColumn<QString>("found");
        const QString failed;
        const QString nothing = QStringLiteral("nothing");
        const QString title = QStringLiteral("T");
        const QByteArray whole = R"({"title":"T","artist":"","source":"Safari","playing":false)";
        QTest::newRow("null and a line feed") << QByteArray("null\n") << nothing;
        QTest::newRow("null times") << whole + R"(,"elapsedTime":null,"duration":null})" << title;
        QTest::newRow("a key that nobody knows") << whole + R"(,"album":{}})" << title;
        QTest::newRow("a time of another type") << whole + R"(,"duration":"200"})" << failed;
        QTest::newRow("no source") << QByteArray(whole).replace("source", "Source") + '}' << failed;
        QTest::newRow("a flag of another type")
            << QByteArray(whole).replace("false", "1") + '}' << failed;
        QTest::newRow("half an object") << whole << failed;
        QTest::newRow("bytes that are no text")
            << QByteArray(whole).replace("T", "\xC3\x28") + '}' << failed;
    }

    void decodes() {
        QFETCH(const QByteArray, output);
        const MediaReading reading = decodeMediaReading(output);
        const QString title =
            reading.activity ? reading.activity->title : QStringLiteral("nothing");
        QTEST(reading.succeeded ? title : QString(), "found");
        QVERIFY(!reading.activity ||
                (!reading.activity->elapsedTime && !reading.activity->duration));
    }

    void decodesEveryField() {
        MediaActivity activity = track();
        activity.title = QStringLiteral("x\" & do shell script \"😀 \u202Eשלום\u0007");
        QCOMPARE(*decodeMediaReading(json(activity)).activity, activity);
    }

    void knowsBrowsersByName() {
        MediaActivity activity = track();
        for (const char *name : {"Mozilla Firefox", "CHROMIUM", "Zen Browser", "Arc"}) {
            activity.source = QString::fromUtf8(name);
            QVERIFY2(activity.isBrowser(), name);
        }
        for (const char *name : {"Zen", "mpv", ""}) {
            activity.source = QString::fromUtf8(name);
            QVERIFY2(!activity.isBrowser(), name);
        }
    }

    void seeksWithinTheTrack() {
        const auto target = [](Command command, Time elapsed, Time duration) {
            MediaActivity activity = track();
            activity.elapsedTime = elapsed;
            activity.duration = duration;
            return seekTarget(command, activity);
        };
        QCOMPARE(target(Command::Rewind, 10, 200), Time(0));
        QCOMPARE(target(Command::Forward, 100.5, 200), Time(115.5));
        QCOMPARE(target(Command::Forward, 195, 200), Time(200));
        QCOMPARE(target(Command::Forward, {}, 200), Time());
        QCOMPARE(target(Command::Forward, 1, 0), Time());
        QCOMPARE(target(Command::Forward, 1, std::numeric_limits<double>::quiet_NaN()), Time());
    }
};

static const RegisteredTest<MediaActivityTest> registeredMediaActivityTest;
#include "MediaActivityTest.moc"
