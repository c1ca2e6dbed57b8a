#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace perchly {

class MediaSession;

/// Runs one script, which can reach only the media session. Returns, as UTF-8, the result of its
/// function `run`, if it defines one, else the value of its last expression; nullopt if the script
/// fails.
[[nodiscard]] std::optional<std::string> runScript(std::string_view script, MediaSession &session);

} // namespace perchly
