#include "CompactLook.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

class CompactLookTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void showsTheMostImportantActivity() {
        CompactFacts facts{.busyShortcut = QStringLiteral("Resize images"),
                           .timerRuns = true,
                           .isBreak = true,
                           .seconds = 125,
                           .musicActive = true,
                           .playing = true,
                           .musicTitle = QStringLiteral("Clair de lune"),
                           .held = 3,
                           .activity = QStringLiteral("Focus complete")};
        const auto look = [&facts] {
            const CompactLook shown = compactLook(facts);
            return QStringList{shown.symbol, shown.title, shown.status}.join(u", ");
        };
        QCOMPARE(look(), QStringLiteral("bolt.fill, Resize images, Running"));
        facts.busyShortcut = QString();
        QCOMPARE(look(), QStringLiteral("timer, Break, 02:05"));
        facts.isBreak = false;
        QCOMPARE(look(), QStringLiteral("timer, Focus, 02:05"));
        facts.timerRuns = false;
        QCOMPARE(look(), QStringLiteral("waveform, Clair de lune, Playing"));
        facts.playing = false;
        QCOMPARE(look(), QStringLiteral("pause.fill, Clair de lune, Paused"));
        facts.musicActive = false;
        QCOMPARE(look(), QStringLiteral("tray.fill, File shelf, 3 held"));
        facts.held = 0;
        QCOMPARE(look(), QStringLiteral("square.stack.3d.up.fill, Focus complete, Done"));
        facts.activity = QStringLiteral("Break complete");
        QCOMPARE(look(), QStringLiteral("square.stack.3d.up.fill, Perchly, Ready"));
    }
};

static const RegisteredTest<CompactLookTest> registeredCompactLookTest;

} // namespace perchly

#include "CompactLookTest.moc"
