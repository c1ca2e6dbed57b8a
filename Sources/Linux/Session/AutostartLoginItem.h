#pragma once

#include "LoginItem.h"

namespace perchly {

/// The login item as an entry in the autostart folders. The user's own folder hides an entry of the
/// same name in the system's.
class AutostartLoginItem : public LoginItem {
public:
    /// The absolute path of the program that an entry made here starts.
    explicit AutostartLoginItem(const QString &program);

    /// This program, or the AppImage that it runs from.
    [[nodiscard]] static QString runningProgram();

    /// An entry and its program exist, and neither the user nor the desktop turned it off.
    [[nodiscard]] bool isEnabled() const override;
    [[nodiscard]] Result registerProgram() override;
    [[nodiscard]] Result unregisterProgram() override;

private:
    [[nodiscard]] QString ownEntry() const;
    [[nodiscard]] Result write(const QByteArray &entry, Outcome outcome) const;

    const QString m_program;
};

} // namespace perchly
