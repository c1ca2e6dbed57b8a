#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

namespace perchly {

/// A symbol as an icon on a transparent ground, in the sizes that panels and menus ask for, 16 to
/// 64 pixels. Null for an unknown name.
[[nodiscard]] QIcon symbolIcon(const QString &name, const QColor &colour = QColor(Qt::white));

} // namespace perchly
