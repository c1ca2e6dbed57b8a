#pragma once

#include <string>
#include <string_view>

namespace perchly {

/// Between UTF-8 and the form in which the engine keeps strings, where a character beyond the basic
/// plane is two surrogates of three bytes each, as JavaScript counts it. What is not valid becomes
/// U+FFFD on the way out and is left to the engine on the way in.
[[nodiscard]] std::string toEngine(std::string_view utf8);
[[nodiscard]] std::string fromEngine(std::string_view text);

/// The script with every `let` declaration read as `var`, since the engine knows `const` but not
/// `let`. Strings and comments stay as they are, and so does every position in the text. The one
/// difference is that such a variable belongs to its function rather than to its block.
[[nodiscard]] std::string withoutLet(std::string_view script);

} // namespace perchly
