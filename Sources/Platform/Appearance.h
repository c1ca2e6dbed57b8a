#pragma once

#include <QObject>
#include <QString>

namespace perchly {

/// How the user asked the desktop to look. Main thread only.
class Appearance : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool highContrast READ isHighContrast NOTIFY changed FINAL)
    Q_PROPERTY(QString iconTheme READ iconTheme NOTIFY changed FINAL)
public:
    using QObject::QObject;

    /// False if the desktop has no answer.
    [[nodiscard]] virtual bool isHighContrast() const = 0;

    /// The name of the theme for pictures of applications; empty if the desktop has no answer.
    [[nodiscard]] virtual QString iconTheme() const = 0;

Q_SIGNALS:
    void changed();
};

} // namespace perchly
