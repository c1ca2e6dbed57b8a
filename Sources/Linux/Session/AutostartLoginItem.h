#pragma once

#include "LoginItem.h"

namespace perchly {

/// The login item as an entry in the autostart folders. An entry in the user's folder hides one
/// with the same name in a system folder.
class AutostartLoginItem : public LoginItem {
public:
    /// Takes the absolute path of the program for new entries.
    explicit AutostartLoginItem(const QString &program);

    /// This program, or the AppImage that it runs from.
    [[nodiscard]] static QString runningProgram();

    /// True if an entry and its program exist and the entry was not turned off.
    [[nodiscard]] bool isEnabled() const override;
    [[nodiscard]] Result registerProgram() override;
    [[nodiscard]] Result unregisterProgram() override;

private:
    [[nodiscard]] QString ownEntry() const;
    [[nodiscard]] Result write(const QByteArray &entry, Outcome outcome) const;

    const QString m_program;
};

} // namespace perchly
