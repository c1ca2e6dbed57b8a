#pragma once

#include <QHash>

#include <spa/utils/dict.h>

#include <cstdint>

namespace perchly {

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

private:
    struct Link {
        std::uint32_t from = 0;
        std::uint32_t to = 0;

        friend bool operator==(const Link &, const Link &) = default;
    };

    QHash<std::uint32_t, Link> m_links;
};

} // namespace perchly
