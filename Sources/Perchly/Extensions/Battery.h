#pragma once

#include "PowerSources.h"

namespace perchly {

/// The battery's state in one line, read at once and on each refresh(). Main thread only.
class Battery : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString line READ line NOTIFY lineChanged FINAL)
public:
    explicit Battery(PowerSources &power, QObject *parent = nullptr);

    [[nodiscard]] QString line() const { return m_line; }
    Q_INVOKABLE void refresh();

Q_SIGNALS:
    void lineChanged();

private:
    void show(const PowerSources::Reading &reading);

    PowerSources &m_power;
    QString m_line;
};

} // namespace perchly
