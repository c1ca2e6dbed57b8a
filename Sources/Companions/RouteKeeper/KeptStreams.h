#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace perchly {

/// Where a stream goes, as the session manager names a device. Without a type, the session manager
/// decides.
struct KeptTarget {
    std::string type;
    std::string value;
};

/// The streams that the program has moved, by node.
class KeptStreams {
public:
    /// Reads bytes of "+NODE", "+NODE TYPE VALUE" with tabs between, or "-NODE", each with a zero
    /// byte after it. Ignores anything else.
    void read(std::string_view bytes);

    [[nodiscard]] std::map<std::uint32_t, KeptTarget> &streams() { return m_streams; }

private:
    void obey(std::string_view record);

    std::string m_rest;
    std::map<std::uint32_t, KeptTarget> m_streams;
};

} // namespace perchly
