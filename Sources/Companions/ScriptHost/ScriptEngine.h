#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace perchly {

class MediaSession;

/// Runs one script, which can reach the media session and nothing else. The result is what its
/// function `run` returns, if it defines one, else the value of its last expression, as UTF-8;
/// nothing when the script fails.
[[nodiscard]] std::optional<std::string> runScript(std::string_view script, MediaSession &session);

} // namespace perchly
