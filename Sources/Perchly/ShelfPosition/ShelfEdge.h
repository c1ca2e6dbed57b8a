#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <optional>

namespace perchly {

/// The display edge to which the shelf is docked. Choosers list them in this order.
enum class ShelfEdge { Top, Left, Right };

inline constexpr std::array allShelfEdges{ShelfEdge::Top, ShelfEdge::Left, ShelfEdge::Right};

/// "top", "left" or "right", the stored form.
[[nodiscard]] QString shelfEdgeName(ShelfEdge edge);

/// The edge with exactly that stored name, if any.
[[nodiscard]] std::optional<ShelfEdge> shelfEdgeFromName(QStringView name);

} // namespace perchly
