#pragma once

#include "KeyPress.h"

#include <functional>

namespace perchly {

/// Sees each key press that is delivered to the program's own windows, before they see it.
class KeyMonitor {
public:
    /// Returns true to consume the press.
    using Handler = std::function<bool(const KeyPress &)>;

    virtual ~KeyMonitor() = default;

    /// Installs the one handler, replacing an earlier one. Called on the main thread, as it calls
    /// back.
    virtual void start(Handler handler) = 0;
};

} // namespace perchly
