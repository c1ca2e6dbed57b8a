#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// The time and the date as shown. While running, it wakes up at the end of each minute, and every
/// few seconds, as nothing announces a wake-up or a clock change.
class WallTime : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool running READ isRunning WRITE setRunning NOTIFY runningChanged FINAL)
    Q_PROPERTY(QString time READ time NOTIFY changed FINAL)
    Q_PROPERTY(QString day READ day NOTIFY changed FINAL)
    Q_PROPERTY(QString date READ date NOTIFY changed FINAL)
    Q_PROPERTY(QString dayNumber READ dayNumber NOTIFY changed FINAL)
    Q_PROPERTY(QString month READ month NOTIFY changed FINAL)
public:
    explicit WallTime(QObject *parent = nullptr);

    /// Starting it updates all texts at once.
    [[nodiscard]] bool isRunning() const { return m_running; }
    void setRunning(bool running);

    [[nodiscard]] QString time() const { return m_time; }           ///< "9:41 AM"
    [[nodiscard]] QString day() const { return m_day; }             ///< "Tuesday, Nov 24"
    [[nodiscard]] QString date() const { return m_date; }           ///< the whole date
    [[nodiscard]] QString dayNumber() const { return m_dayNumber; } ///< "24"
    [[nodiscard]] QString month() const { return m_month; }         ///< "November 2026"

Q_SIGNALS:
    void runningChanged();
    void changed();

private:
    void refresh();

    bool m_running = false;
    QString m_time;
    QString m_day;
    QString m_date;
    QString m_dayNumber;
    QString m_month;
    QTimer m_timer;
};

} // namespace perchly
