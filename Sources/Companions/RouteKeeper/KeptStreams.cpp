#include "KeptStreams.h"

#include <charconv>

namespace perchly {

void KeptStreams::read(std::string_view bytes) {
    m_rest += bytes;
    std::size_t start = 0;
    for (auto end = m_rest.find('\0'); end != std::string::npos; end = m_rest.find('\0', start)) {
        obey(std::string_view(m_rest).substr(start, end - start));
        start = end + 1;
    }
    m_rest.erase(0, start);
}

void KeptStreams::obey(std::string_view record) {
    std::uint32_t node = 0;
    if (record.size() < 2) {
        return;
    }
    const char *const end = record.data() + record.size();
    const auto [after, error] = std::from_chars(record.data() + 1, end, node);
    if (error != std::errc()) {
        return;
    }
    m_streams.erase(node);
    if (record.front() != '+') {
        return;
    }
    const std::string_view target(after, std::size_t(end - after));
    const auto tab = target.find('\t', 1);
    m_streams[node] = tab == std::string_view::npos
                          ? KeptTarget{}
                          : KeptTarget{std::string(target.substr(1, tab - 1)),
                                       std::string(target.substr(tab + 1))};
}

} // namespace perchly
