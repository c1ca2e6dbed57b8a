#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace perchly {

/// Reads small files one after the other into one buffer. For one thread at a time.
class EntryFile {
public:
    /// The whole text of the file in that open folder, valid until the next call. Nothing for what
    /// cannot be read, what is no ordinary file and might never end, and what is far too large for
    /// a desktop entry.
    [[nodiscard]] std::optional<std::string_view> read(int folder, const char *name);

private:
    std::string m_buffer;
};

} // namespace perchly
