#pragma once

#include <QObject>
#include <QString>

namespace perchly {

/// Limits the program to one running instance per user and session. Main thread only.
class SingleInstance : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// True if this is the only instance. False if another runs: it was asked to show its shelf,
    /// and this one should end.
    [[nodiscard]] virtual bool claim() = 0;

Q_SIGNALS:
    /// A second start, or the desktop, requested "show", "search", "workspace", "mixer" or
    /// "settings". Ignore other actions.
    void requested(const QString &action);
};

} // namespace perchly
