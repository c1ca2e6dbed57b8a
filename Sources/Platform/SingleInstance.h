#pragma once

#include <QObject>
#include <QString>

namespace perchly {

/// Keeps the program to one running instance per user and session. Main thread only.
class SingleInstance : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// True when this is the only instance. False when another runs: it has been asked to show its
    /// shelf, and this one should end.
    [[nodiscard]] virtual bool claim() = 0;

Q_SIGNALS:
    /// Another start, or the desktop, asked for "show", "search", "workspace", "mixer" or
    /// "settings". Other actions are to be ignored.
    void requested(const QString &action);
};

} // namespace perchly
