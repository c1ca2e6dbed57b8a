#pragma once

#include <QElapsedTimer>
#include <QObject>

#include <algorithm>

namespace perchly {

/// The longest time for which the main thread's events had to wait. For tests only.
class Heartbeat : public QObject {
public:
    Heartbeat() {
        m_elapsed.start();
        startTimer(1, Qt::PreciseTimer);
    }
    /// In milliseconds.
    [[nodiscard]] qint64 longest() const { return m_longest; }

protected:
    void timerEvent(QTimerEvent *) override {
        m_longest = std::max(m_longest, m_elapsed.restart());
    }

private:
    QElapsedTimer m_elapsed;
    qint64 m_longest = 0;
};

} // namespace perchly
