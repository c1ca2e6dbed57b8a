#pragma once

#include <QString>

namespace perchly {

/// Current activities, of which the collapsed shelf shows the most important.
struct CompactFacts {
    QString busyShortcut = {}; ///< null if no shortcut runs
    bool timerRuns = false;
    bool isBreak = false;
    int seconds = 0; ///< remaining on the focus timer
    bool musicActive = false;
    bool playing = false;
    QString musicTitle = {};
    qsizetype held = 0;
    QString activity = {};
};

/// A symbol's name, a status word and a title.
struct CompactLook {
    QString symbol;
    QString status;
    QString title;

    bool operator==(const CompactLook &) const = default;
};

/// The first that applies: a running shortcut, the focus timer, media, held files, nothing.
[[nodiscard]] CompactLook compactLook(const CompactFacts &facts);

/// "02:05"; minutes continue past 59.
[[nodiscard]] QString minutesAndSeconds(int seconds);

} // namespace perchly
