#pragma once

#include "KeyMonitor.h"

#include <QObject>

#include <optional>

class QKeyEvent;

namespace perchly {

/// Translates a key event; Ctrl+2 is both Control+2 and Command+2. The digit row gives its digits
/// in every layout, even where they need Shift.
[[nodiscard]] KeyPress keyPressFromQt(const QKeyEvent &event);

/// Sees key presses before windows, shortcuts and items do. Key repeats count as presses, as they
/// do for windows.
class QtKeyMonitor : public QObject, public KeyMonitor {
    Q_OBJECT
public:
    void start(Handler handler) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] bool handle(const QEvent &event) const;

    Handler m_handler;
    std::optional<bool> m_verdict; ///< answer to the preceding ShortcutOverride
};

} // namespace perchly
