#include "CompactLook.h"
#include "CompactStatus.h"
#include "FakeHosts.h"
#include "ShelfLibrary.h"
#include "TestRegistry.h"

#include <QSignalSpy>
#include <QTest>

namespace perchly {

class CompactLookTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theMostImportantThingIsShown_data() {
        QTest::addColumn<CompactFacts>("facts");
        QTest::addColumn<QStringList>("look");
        const CompactFacts all{.busyShortcut = QStringLiteral("Resize images"),
                               .timerRuns = true,
                               .seconds = 125,
                               .musicActive = true,
                               .playing = true,
                               .musicTitle = QStringLiteral("Clair de lune"),
                               .held = 3,
                               .activity = QStringLiteral("Focus complete")};
        const auto row = [](const char *name, const CompactFacts &facts, const char *symbol,
                            const char *status, const char *title) {
            QTest::newRow(name) << facts
                                << QStringList{QString::fromLatin1(symbol),
                                               QString::fromLatin1(status),
                                               QString::fromLatin1(title)};
        };
        CompactFacts facts = all;
        row("a shortcut wins over everything", facts, "bolt.fill", "Running", "Resize images");
        facts.busyShortcut = QString();
        row("the timer wins over media", facts, "timer", "02:05", "Focus");
        facts.timerRuns = false;
        row("playing media win over held files", facts, "waveform", "Playing", "Clair de lune");
        facts.playing = false;
        row("paused media do as well", facts, "pause.fill", "Paused", "Clair de lune");
        facts.musicActive = false;
        row("held files are counted", facts, "tray.fill", "3 held", "File shelf");
        facts.held = 0;
        row("a finished session is told of", facts, "square.stack.3d.up.fill", "Done",
            "Focus complete");
        facts.activity = QStringLiteral("focus complete");
        row("any other activity is nothing special", facts, "square.stack.3d.up.fill", "Ready",
            "Perchly");
    }

    void theMostImportantThingIsShown() {
        QFETCH(CompactFacts, facts);
        QFETCH(QStringList, look);
        const CompactLook actual = compactLook(facts);
        QCOMPARE(QStringList({actual.symbol, actual.status, actual.title}), look);
    }

    void followsBothStores() {
        FakeHosts fakes;
        ShelfModel model(fakes.clock, fakes.preferences, fakes.alertSound);
        ShelfLibrary library(fakes.preferences, fakes.catalog, fakes.openPanel);
        Productivity productivity(fakes.hosts, library, model);
        CompactStatus status;
        status.setModel(&model);
        status.setProductivity(&productivity);
        QCOMPARE(status.sentence(), QStringLiteral("Perchly · Ready"));
        model.focus();
        const QSignalSpy changed(&status, &CompactStatus::changed);
        fakes.clock.advance(std::chrono::seconds(1));
        QCOMPARE(status.sentence(), QStringLiteral("Focus · 24:59"));
        model.setMedia({.playing = true}); // not shown while the timer runs
        QCOMPARE(changed.count(), 1);
        model.endFocus();
        productivity.held()->hold({QUrl(QStringLiteral("https://example.org"))});
        QCOMPARE(status.sentence(), QStringLiteral("File shelf · 1 held"));
    }
};

namespace {

const RegisteredTest<CompactLookTest> registeredCompactLookTest;

} // namespace

} // namespace perchly

#include "CompactLookTest.moc"
