#pragma once

#include <QIcon>
#include <QString>

namespace perchly {

/// A symbol in white on the dark plate of the program's icon, so that it shows on any background,
/// in the sizes that panels use, 16 to 64 pixels. Null for an unknown name.
[[nodiscard]] QIcon platedSymbolIcon(const QString &name);

} // namespace perchly
