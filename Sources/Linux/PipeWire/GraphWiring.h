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
    /// True when the object was a link.
    bool add(std::uint32_t id, const char *type, const spa_dict &properties);
    /// The same.
    bool remove(std::uint32_t id) { return m_links.remove(id); }
    void clear() { m_links.clear(); }

    /// Whether a link leads from the one node to the other.
    [[nodiscard]] bool connects(std::uint32_t from, std::uint32_t to) const;

    /// Of nothing when there is no such link.
    [[nodiscard]] GraphLink link(std::uint32_t id) const { return m_links.value(id); }

private:
    QHash<std::uint32_t, GraphLink> m_links;
};

} // namespace perchly
