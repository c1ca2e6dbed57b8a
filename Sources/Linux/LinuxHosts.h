#pragma once

#include "ConnectWithTimeout.h"
#include "Hosts.h"
#include "SingleInstance.h"

#include <QByteArray>

#include <memory>
#include <optional>

namespace perchly {

class SessionBus;

/// The one place that chooses the hosts. With PERCHLY_HOSTS=null in the environment it chooses null
/// implementations for all but the clock. Missing services are reported on stderr, once each,
/// except the system tray.

/// Hides a session bus that does not answer from Qt, which would wait for it without a timeout. Qt
/// looks for the bus once; the program and its children find it again when it answers. Create it
/// first, and keep it until the application object is created.
class UnansweringBusHider {
public:
    UnansweringBusHider();
    ~UnansweringBusHider();
    UnansweringBusHider(const UnansweringBusHider &) = delete;
    UnansweringBusHider &operator=(const UnansweringBusHider &) = delete;

    [[nodiscard]] bool hasAnswered() const { return !m_address; }

private:
    std::optional<QByteArray> m_address; ///< the hidden address; a null array if there was none
};

/// Chooses Qt's platform plugin: wayland if the compositor lets programs place panels, else xcb, or
/// none if no X server can be reached. PERCHLY_WINDOW_SYSTEM=x11 or wayland overrides, and so does
/// any QT_QPA_PLATFORM but wayland. Create it before the application object, and keep it until that
/// exists: an X server resets when its last client leaves. Of the variables that it sets, only
/// QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT stays in the environment.
class WindowSystemChoice {
public:
    WindowSystemChoice();
    ~WindowSystemChoice();
    WindowSystemChoice(const WindowSystemChoice &) = delete;
    WindowSystemChoice &operator=(const WindowSystemChoice &) = delete;

    /// False if neither can be reached; true if QT_QPA_PLATFORM overrides.
    [[nodiscard]] bool hasDisplay() const { return m_hasDisplay; }

private:
    void set(const char *variable, const char *value);
    void chooseWaylandBuffers();

    XConnectionPointer m_connection;
    bool m_hasDisplay = true;
    QList<std::pair<const char *, QByteArray>> m_previous; ///< null arrays for unset variables
};

/// Needs the application object. Connects if the bus has just answered, else later; null with the
/// null implementations.
[[nodiscard]] std::shared_ptr<SessionBus> makeSessionBus(bool hasAnswered);

/// Needs the application object, and a QApplication for the status item. Reads the preferences.
[[nodiscard]] Hosts makeHosts(const std::shared_ptr<SessionBus> &bus);

/// Needs the application object.
[[nodiscard]] std::unique_ptr<SingleInstance>
makeSingleInstance(const std::shared_ptr<SessionBus> &bus);

} // namespace perchly
