#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace perchly {

/// Where a stream goes: the session manager's way of naming a device. Without a type it goes by
/// itself.
struct KeptTarget {
    std::string type;
    std::string value;
};

/// What the program has said about the streams that it has moved, by the numbers of their nodes.
class KeptStreams {
public:
    /// Takes the next bytes of what it says: "+NODE", "+NODE TYPE VALUE" with tabs between, or
    /// "-NODE", each with a zero byte after it. What makes no sense is left out.
    void read(std::string_view bytes);

    [[nodiscard]] std::map<std::uint32_t, KeptTarget> &streams() { return m_streams; }

private:
    void obey(std::string_view record);

    std::string m_rest;
    std::map<std::uint32_t, KeptTarget> m_streams;
};

} // namespace perchly
