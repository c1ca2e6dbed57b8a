#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace perchly {

/// The target of a stream, in the session manager's terms. Without a type, the session manager
/// decides.
struct KeptTarget {
    std::string type;
    std::string value;
};

/// The streams that the program has moved, by node.
class KeptStreams {
public:
    /// Reads zero-terminated strings: "+NODE", "+NODE TYPE VALUE" with tabs between, or "-NODE".
    /// Ignores anything else.
    void read(std::string_view bytes);

    [[nodiscard]] std::map<std::uint32_t, KeptTarget> &streams() { return m_streams; }

private:
    void obey(std::string_view record);

    std::string m_rest;
    std::map<std::uint32_t, KeptTarget> m_streams;
};

} // namespace perchly
