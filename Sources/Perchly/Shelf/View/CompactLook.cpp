#include "CompactLook.h"

#include "ShownText.h"

namespace perchly {

CompactLook compactLook(const CompactFacts &facts) {
    if (!facts.busyShortcut.isNull()) {
        return {QStringLiteral("bolt.fill"), QStringLiteral("Running"),
                inOneLine(facts.busyShortcut)};
    }
    if (facts.timerRuns) {
        return {QStringLiteral("timer"), minutesAndSeconds(facts.seconds), QStringLiteral("Focus")};
    }
    if (facts.musicActive) {
        return facts.playing ? CompactLook{QStringLiteral("waveform"), QStringLiteral("Playing"),
                                           facts.musicTitle}
                             : CompactLook{QStringLiteral("pause.fill"), QStringLiteral("Paused"),
                                           facts.musicTitle};
    }
    if (facts.held > 0) {
        return {QStringLiteral("tray.fill"), QStringLiteral("%1 held").arg(facts.held),
                QStringLiteral("File shelf")};
    }
    const QString complete = QStringLiteral("Focus complete");
    const QString symbol = QStringLiteral("square.stack.3d.up.fill");
    return facts.activity == complete
               ? CompactLook{symbol, QStringLiteral("Done"), complete}
               : CompactLook{symbol, QStringLiteral("Ready"), QStringLiteral("Perchly")};
}

QString minutesAndSeconds(int seconds) {
    return QStringLiteral("%1:%2")
        .arg(seconds / 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

} // namespace perchly
