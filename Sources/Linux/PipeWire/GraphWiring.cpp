#include "GraphWiring.h"

#include "DictValue.h"

#include <pipewire/pipewire.h>

#include <algorithm>
#include <cstring>

namespace perchly {

bool GraphWiring::add(std::uint32_t id, const char *type, const spa_dict &properties) {
    if (std::strcmp(type, PW_TYPE_INTERFACE_Port) == 0) {
        if (const auto node = numberOf(properties, PW_KEY_NODE_ID)) {
            m_ports.insert(id, *node);
        }
        return true;
    }
    if (std::strcmp(type, PW_TYPE_INTERFACE_Link) == 0) {
        const auto from = numberOf(properties, PW_KEY_LINK_OUTPUT_NODE);
        const auto to = numberOf(properties, PW_KEY_LINK_INPUT_NODE);
        if (from && to) {
            m_links.insert(id, {*from, *to});
        }
        return true;
    }
    return false;
}

bool GraphWiring::remove(std::uint32_t id) {
    return m_ports.remove(id) + m_links.remove(id) > 0;
}

void GraphWiring::clear() {
    m_ports.clear();
    m_links.clear();
}

bool GraphWiring::hasPorts(std::uint32_t node) const {
    return std::any_of(m_ports.cbegin(), m_ports.cend(),
                       [&](std::uint32_t owner) { return owner == node; });
}

bool GraphWiring::feeds(std::uint32_t node) const {
    return std::any_of(m_links.cbegin(), m_links.cend(),
                       [&](const Link &link) { return link.from == node; });
}

bool GraphWiring::isFed(std::uint32_t node) const {
    return std::any_of(m_links.cbegin(), m_links.cend(),
                       [&](const Link &link) { return link.to == node; });
}

} // namespace perchly
