#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// The time and the date as they are shown to people. While it runs it wakes when the minute ends,
/// and every few seconds besides, since a machine that slept or a clock that was set tells nobody;
/// it announces only lines that really changed.
class WallTime : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool running READ isRunning WRITE setRunning NOTIFY runningChanged FINAL)
    Q_PROPERTY(QString time READ time NOTIFY timeChanged FINAL)
    Q_PROPERTY(QString day READ day NOTIFY dayChanged FINAL)
    Q_PROPERTY(QString dayNumber READ dayNumber NOTIFY dayNumberChanged FINAL)
    Q_PROPERTY(QString month READ month NOTIFY monthChanged FINAL)
public:
    explicit WallTime(QObject *parent = nullptr);

    /// Starting it brings every line up to date at once.
    [[nodiscard]] bool isRunning() const { return m_running; }
    void setRunning(bool running);

    [[nodiscard]] QString time() const { return m_time; }           ///< "9:41 AM"
    [[nodiscard]] QString day() const { return m_day; }             ///< "Tuesday, Nov 24"
    [[nodiscard]] QString dayNumber() const { return m_dayNumber; } ///< "24"
    [[nodiscard]] QString month() const { return m_month; }         ///< "November 2026"

Q_SIGNALS:
    void runningChanged();
    void timeChanged();
    void dayChanged();
    void dayNumberChanged();
    void monthChanged();

private:
    void refresh();
    void assign(QString &field, const QString &value, void (WallTime::*changed)());

    bool m_running = false;
    QString m_time;
    QString m_day;
    QString m_dayNumber;
    QString m_month;
    QTimer m_timer;
};

} // namespace perchly
