#pragma once

#include <QString>

namespace perchly {

/// Whether the program is started when the user logs in. The desktop keeps it, and the user may
/// change it there at any time. Main thread only.
class LoginItem {
public:
    enum class Outcome { Registered, Unregistered, Failed };

    struct Result {
        Outcome outcome = Outcome::Failed;
        QString message = {}; ///< why it failed, for the user; else empty
    };

    virtual ~LoginItem() = default;

    /// Whether the desktop starts the program at the next login, as far as it can be known now.
    [[nodiscard]] virtual bool isEnabled() const = 0;

    /// Has this program started from the next login on. On failure nothing has changed.
    [[nodiscard]] virtual Result registerProgram() = 0;

    /// Ends that. A program that is not registered is unregistered already.
    [[nodiscard]] virtual Result unregisterProgram() = 0;
};

} // namespace perchly
