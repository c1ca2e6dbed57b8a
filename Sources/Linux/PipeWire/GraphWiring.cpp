#include "GraphWiring.h"

#include "DictValue.h"

#include <pipewire/pipewire.h>

#include <algorithm>
#include <cstring>

namespace perchly {

bool GraphWiring::add(std::uint32_t id, const char *type, const spa_dict &properties) {
    if (std::strcmp(type, PW_TYPE_INTERFACE_Link) != 0) {
        return false;
    }
    const auto from = numberOf(properties, PW_KEY_LINK_OUTPUT_NODE);
    const auto to = numberOf(properties, PW_KEY_LINK_INPUT_NODE);
    if (from && to) {
        m_links.insert(id, {*from, *to});
    }
    return true;
}

bool GraphWiring::connects(std::uint32_t from, std::uint32_t to) const {
    return std::find(m_links.cbegin(), m_links.cend(), GraphLink{from, to}) != m_links.cend();
}

} // namespace perchly
