#include "CompactLook.h"

#include "ShelfModel.h"
#include "ShownText.h"

#include <QCoreApplication>

namespace perchly {

CompactLook compactLook(const CompactFacts &facts) {
    if (!facts.busyShortcut.isNull()) {
        return {QStringLiteral("bolt.fill"), QCoreApplication::translate("CompactLook", "Running"),
                inOneLine(facts.busyShortcut)};
    }
    if (facts.timerRuns) {
        return {QStringLiteral("timer"), minutesAndSeconds(facts.seconds),
                facts.isBreak ? QCoreApplication::translate("CompactLook", "Break")
                              : QCoreApplication::translate("CompactLook", "Focus")};
    }
    if (facts.musicActive) {
        return facts.playing ? CompactLook{QStringLiteral("waveform"),
                                           QCoreApplication::translate("CompactLook", "Playing"),
                                           facts.musicTitle}
                             : CompactLook{QStringLiteral("pause.fill"),
                                           QCoreApplication::translate("CompactLook", "Paused"),
                                           facts.musicTitle};
    }
    if (facts.held > 0) {
        return {QStringLiteral("tray.fill"),
                QCoreApplication::translate("CompactLook", "%n held", nullptr, int(facts.held)),
                QCoreApplication::translate("CompactLook", "File shelf")};
    }
    const QString complete = ShelfModel::tr("Focus complete");
    const QString symbol = QStringLiteral("square.stack.3d.up.fill");
    return facts.activity == complete
               ? CompactLook{symbol, QCoreApplication::translate("CompactLook", "Done"), complete}
               : CompactLook{symbol, QCoreApplication::translate("CompactLook", "Ready"),
                             QStringLiteral("Perchly")};
}

QString minutesAndSeconds(int seconds) {
    return QStringLiteral("%1:%2")
        .arg(seconds / 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

} // namespace perchly
