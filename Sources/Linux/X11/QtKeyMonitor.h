#pragma once

#include "KeyMonitor.h"

#include <QObject>

#include <optional>

class QKeyEvent;

namespace perchly {

/// Translates a key event: Control is Ctrl, Option is Alt, Shift is Shift, and Command is Super, or
/// Ctrl without Alt: Ctrl+2 is both Control+2 and Command+2. The digit row gives its digits in
/// every layout, also where they need Shift.
[[nodiscard]] KeyPress keyPressFromQt(const QKeyEvent &event);

/// Watches key presses before windows, their shortcuts and their items see them. Key repeat counts
/// as presses, as it does for windows.
class QtKeyMonitor : public QObject, public KeyMonitor {
    Q_OBJECT
public:
    void start(Handler handler) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] bool handle(const QEvent &event) const;

    Handler m_handler;
    std::optional<bool> m_verdict; ///< of the ShortcutOverride that Qt sends before the press
};

} // namespace perchly
