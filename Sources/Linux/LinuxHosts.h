#pragma once

#include "Hosts.h"
#include "SingleInstance.h"
#include "XServerReach.h"

#include <memory>

namespace perchly {

/// The one place that chooses how the program reaches its surroundings. With PERCHLY_HOSTS=null in
/// the environment it chooses the null implementations everywhere, apart from time. What is missing
/// is told on standard error, once each; a desktop without a place for status icons misses nothing.

/// A session bus that takes connections and never answers would hold up the toolkit for good. Call
/// it first of all: such a bus, and one that is not there, is put out of sight.
void disableSilentBus();

/// Chooses the toolkit's window system: X11, also on a Wayland desktop, or none where no X server
/// can be reached. QT_QPA_PLATFORM overrides. Make it before the application object, and keep it
/// until that is made: an X server that its last client leaves starts anew.
class WindowSystemChoice {
public:
    WindowSystemChoice();

private:
    XConnectionPointer m_connection;
};

/// Needs the application object; the status item needs a QApplication. Preferences are read here.
[[nodiscard]] Hosts makeHosts();

/// Needs the application object. Connects to the session bus.
[[nodiscard]] std::unique_ptr<SingleInstance> makeSingleInstance();

} // namespace perchly
