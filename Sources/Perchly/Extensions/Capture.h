#pragma once

#include "Clock.h"

#include <QObject>
#include <QUrl>

namespace perchly {

class Preferences;
class ScreenCapture;
class ShellActions;

/// Captures a part of the screen into a file. Main thread only.
class Capture : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool active READ active NOTIFY activeChanged FINAL)
    Q_PROPERTY(QString error READ error NOTIFY errorChanged FINAL)
public:
    /// The arguments must outlive this object.
    Capture(ScreenCapture &capture, Clock &clock, ShellActions &shell, QObject *parent = nullptr);

    /// Deletes captures older than a day, unless a stored launch group, snippet or the quick note
    /// names them. Deletes none if the preferences are incomplete. Works in the background.
    static void removeOld(const Preferences &preferences);

    /// Whether the user is choosing a region, or is about to.
    [[nodiscard]] bool active() const { return m_active; }
    /// Why the last capture failed; null if it succeeded or the error was dismissed.
    [[nodiscard]] QString error() const { return m_error; }
    Q_INVOKABLE void dismissError() { setError({}); }
    /// Hides the program's windows, lets the user choose a part of the screen, announces the
    /// picture, and shows the workspace window. Does nothing during a capture.
    Q_INVOKABLE void start();

Q_SIGNALS:
    void activeChanged();
    void errorChanged();
    void captured(const QUrl &file);

private:
    void end(const QString &path, int status);
    void setActive(bool active);
    void setError(const QString &error);

    ScreenCapture &m_capture;
    Clock &m_clock;
    ShellActions &m_shell;
    bool m_active = false;
    QString m_error;
    Task m_step;
};

} // namespace perchly
