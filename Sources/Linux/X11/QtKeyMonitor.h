#pragma once

#include "KeyMonitor.h"

#include <QObject>

#include <optional>

class QKeyEvent;

namespace perchly {

/// Watches the key presses that the toolkit delivers to windows, before the windows, their
/// shortcuts and their items see them. Key repeat is told as presses, as windows get it.
class QtKeyMonitor : public QObject, public KeyMonitor {
    Q_OBJECT
public:
    explicit QtKeyMonitor(QObject *parent = nullptr);

    void start(Handler handler) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// What the handler said when the toolkit asked whether somebody overrides a shortcut; the
    /// press itself follows.
    struct Verdict {
        quint64 timestamp = 0;
        int key = 0;
        quint32 scanCode = 0;
        bool isConsumed = false;

        [[nodiscard]] bool isAbout(const QKeyEvent &event) const;
    };

    bool handle(const QKeyEvent &event);

    Handler m_handler;
    std::optional<Verdict> m_verdict;
};

} // namespace perchly
