#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace perchly {

class MediaSession;

/// Runs one script that knows the media session and nothing else of the world. The result is what
/// its function `run` returns, where it defines one, else the value of its last expression, as
/// UTF-8 text; nothing when the script fails.
[[nodiscard]] std::optional<std::string> runScript(std::string_view script, MediaSession &session);

} // namespace perchly
