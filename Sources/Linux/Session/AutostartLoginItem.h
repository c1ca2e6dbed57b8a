#pragma once

#include "LoginItem.h"

namespace perchly {

/// The login item as an entry in the desktop's autostart folders. The person's own folder hides an
/// entry of the same name in the system's.
class AutostartLoginItem : public LoginItem {
public:
    /// The program is what an entry made here starts, by its absolute path.
    explicit AutostartLoginItem(const QString &program);

    /// This program, as the person started it: the image file where it runs from one.
    [[nodiscard]] static QString runningProgram();

    /// An entry is there, its program too, and neither the person nor the desktop turned it off.
    [[nodiscard]] bool isEnabled() const override;
    [[nodiscard]] Result registerProgram() override;
    [[nodiscard]] Result unregisterProgram() override;

private:
    [[nodiscard]] QString ownEntry() const;
    [[nodiscard]] Result write(const QByteArray &entry, Outcome outcome) const;

    const QString m_program;
};

} // namespace perchly
