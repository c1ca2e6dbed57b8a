#include "ShelfEdge.h"

#include <algorithm>

namespace perchly {

QString shelfEdgeName(ShelfEdge edge) {
    switch (edge) {
    case ShelfEdge::Top:
        return QStringLiteral("top");
    case ShelfEdge::Left:
        return QStringLiteral("left");
    case ShelfEdge::Right:
        return QStringLiteral("right");
    }
    Q_UNREACHABLE();
}

std::optional<ShelfEdge> shelfEdgeFromName(QStringView name) {
    const auto found = std::ranges::find_if(
        allShelfEdges, [name](ShelfEdge edge) { return shelfEdgeName(edge) == name; });
    return found == allShelfEdges.end() ? std::nullopt : std::optional(*found);
}

} // namespace perchly
