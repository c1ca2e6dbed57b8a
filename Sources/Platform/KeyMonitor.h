#pragma once

#include "KeyPress.h"

#include <functional>

namespace perchly {

/// Sees each key press before the program's own windows do. Main thread only.
class KeyMonitor {
public:
    /// Returns true to consume the press.
    using Handler = std::function<bool(const KeyPress &)>;

    virtual ~KeyMonitor() = default;

    /// Installs the handler, replacing any earlier one.
    virtual void start(Handler handler) = 0;
};

} // namespace perchly
