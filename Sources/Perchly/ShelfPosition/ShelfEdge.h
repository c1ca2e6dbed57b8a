#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <optional>

namespace perchly {

/// The display edge to which the shelf is docked, in the order in which choosers list them.
enum class ShelfEdge { Top, Left, Right };

inline constexpr std::array allShelfEdges{ShelfEdge::Top, ShelfEdge::Left, ShelfEdge::Right};

/// "top", "left" or "right": the form in which an edge is stored.
[[nodiscard]] QString shelfEdgeName(ShelfEdge edge);

/// The edge stored as exactly that name, if there is one.
[[nodiscard]] std::optional<ShelfEdge> shelfEdgeFromName(QStringView name);

} // namespace perchly
