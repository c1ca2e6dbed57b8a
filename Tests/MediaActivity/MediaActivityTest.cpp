#include "MediaFixture.h"
#include "MediaScripts.h"
#include "TestRegistry.h"

#include <QTest>

using namespace perchly;

class MediaActivityTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void decodes_data() {
        QTest::addColumn<QByteArray>("output");
        QTest::addColumn<QString>("found");
        const QString failed;
        QTest::newRow("null and a line feed") << QByteArray("null\n") << QStringLiteral("nothing");
        QTest::newRow("times") << item() << QStringLiteral("Song by Singer at 100 of 200");
        QTest::newRow("a time of another type") << item("T", "", "true", R"("100")") << failed;
        QTest::newRow("no source") << item().replace("source", "Source") << failed;
        QTest::newRow("half an object") << item().chopped(2) << failed;
    }

    void decodes() {
        QFETCH(const QByteArray, output);
        const auto [succeeded, found] = decodeMediaReading(output);
        QString text = succeeded ? QStringLiteral("nothing") : QString();
        if (found) {
            text = QStringLiteral("%1 by %2 at %3 of %4")
                       .arg(found->title, found->artist)
                       .arg(found->elapsedTime.value_or(-1))
                       .arg(found->duration.value_or(-1));
        }
        QTEST(text, "found");
    }

    void textsAreFitToShow() {
        QCOMPARE(textToShow(QStringLiteral("a\u0007b\u2028\u202Ec\u200B\n")),
                 QStringLiteral("a b c"));
        const QString emoji =
            QStringLiteral("שלום 👩‍👩‍👧") + QStringLiteral("🎵").repeated(600);
        QCOMPARE(textToShow(emoji), emoji.left(1023)); // cut between characters
    }

    void knowsBrowsersByName() {
        for (const char *name : {"Mozilla Firefox", "CHROMIUM", "Zen Browser", "Zen", "mpv"}) {
            const bool isBrowser = decodeMediaReading(item("T", name)).activity->isBrowser();
            QCOMPARE(isBrowser, QByteArray(name).size() > 3);
        }
    }

    void seeksWithinTheTrack() {
        const auto target = [](MediaPlaybackCommand command, double elapsed, double duration) {
            MediaActivity activity;
            activity.elapsedTime = elapsed;
            activity.duration = duration;
            return seekTarget(command, activity).value_or(-1);
        };
        QCOMPARE(target(MediaPlaybackCommand::Rewind, 10, 200), 0);
        QCOMPARE(target(MediaPlaybackCommand::Forward, 100.5, 200), 115.5);
        QCOMPARE(target(MediaPlaybackCommand::Forward, 195, 200), 200);
        QCOMPARE(target(MediaPlaybackCommand::Forward, 1, 0), -1);
    }

    void positionsInScriptsReadBackTheSame() {
        const auto script = [](double position) {
            return *sendScript(MediaPlaybackCommand::Forward, position);
        };
        QVERIFY(script(42).contains(QStringLiteral("(42.0)")));
        QVERIFY(script(187.25).contains(QStringLiteral("(187.25)")));
        QVERIFY(script(1e-5).contains(QStringLiteral("(1e-05)")));
    }
};

static const RegisteredTest<MediaActivityTest> registeredMediaActivityTest;
#include "MediaActivityTest.moc"
