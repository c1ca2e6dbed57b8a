#pragma once

#include <QString>

namespace perchly {

/// Whether the program starts when the user logs in. The desktop stores this, and the user may
/// change it there at any time. Main thread only.
class LoginItem {
public:
    enum class Outcome { Registered, Unregistered, Failed };

    struct Result {
        Outcome outcome = Outcome::Failed;
        QString message = {}; ///< the error for the user, or empty
    };

    virtual ~LoginItem() = default;

    /// Whether the desktop will start the program at the next login, as far as is known.
    [[nodiscard]] virtual bool isEnabled() const = 0;

    /// Makes the desktop start this program from the next login on. Changes nothing on failure.
    [[nodiscard]] virtual Result registerProgram() = 0;

    /// Undoes registerProgram(). Succeeds if the program is not registered.
    [[nodiscard]] virtual Result unregisterProgram() = 0;
};

} // namespace perchly
