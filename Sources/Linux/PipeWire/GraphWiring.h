#pragma once

#include <QHash>

#include <spa/utils/dict.h>

#include <cstdint>

namespace perchly {

/// The ports and links that the server has announced.
class GraphWiring {
public:
    /// True when the object was a port or a link.
    bool add(std::uint32_t id, const char *type, const spa_dict &properties);
    /// The same.
    bool remove(std::uint32_t id);
    void clear();

    [[nodiscard]] bool hasPorts(std::uint32_t node) const;
    /// Whether a link leads from the node to another.
    [[nodiscard]] bool feeds(std::uint32_t node) const;
    /// Whether a link leads to the node.
    [[nodiscard]] bool isFed(std::uint32_t node) const;

private:
    struct Link {
        std::uint32_t from = 0;
        std::uint32_t to = 0;
    };

    QHash<std::uint32_t, std::uint32_t> m_ports; ///< the nodes that they belong to
    QHash<std::uint32_t, Link> m_links;
};

} // namespace perchly
