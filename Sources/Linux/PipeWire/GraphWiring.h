#pragma once

#include <QHash>

#include <spa/utils/dict.h>

#include <cstdint>

namespace perchly {

/// A link from one node to another.
struct GraphLink {
    std::uint32_t from = 0;
    std::uint32_t to = 0;

    friend bool operator==(const GraphLink &, const GraphLink &) = default;
};

/// The links between nodes that the server has announced.
class GraphWiring {
public:
    /// Adds the object if it is a link; returns whether it is.
    bool add(std::uint32_t id, const char *type, const spa_dict &properties);
    /// Returns whether the object was a link.
    bool remove(std::uint32_t id) { return m_links.remove(id); }
    void clear() { m_links.clear(); }

    /// Whether a link leads from one node to the other.
    [[nodiscard]] bool connects(std::uint32_t from, std::uint32_t to) const;

    /// From 0 to 0 if there is no such link.
    [[nodiscard]] GraphLink link(std::uint32_t id) const { return m_links.value(id); }

private:
    QHash<std::uint32_t, GraphLink> m_links;
};

} // namespace perchly
