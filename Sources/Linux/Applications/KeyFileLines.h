#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace perchly {

/// The lines of the desktop's key files: groups of keys with values, as in desktop entries. They
/// are judged as the desktop's own library does, which takes a hundred times as long. All texts are
/// UTF-8. Any thread.
struct KeyFileLine {
    enum class Kind {
        Nothing, ///< blank, or a comment
        Group,   ///< its name is the key
        Value,
        Broken
    };

    Kind kind = Kind::Nothing;
    std::string_view key = {};   ///< with its language, if it has one: "Name[de]"
    std::string_view value = {}; ///< as it stands in the text
};

/// Takes the next line off the text; nothing at its end.
[[nodiscard]] std::optional<KeyFileLine> takeKeyFileLine(std::string_view &text);

/// A value with its escapes resolved; nothing if there is no value, or it is not UTF-8.
[[nodiscard]] std::optional<std::string> keyFileText(std::string_view value);

/// False for what is neither true nor false.
[[nodiscard]] bool keyFileBoolean(std::string_view value);

/// The elements of a list; nothing if there is no value, or it is not UTF-8.
[[nodiscard]] std::optional<std::vector<std::string>> keyFileList(std::string_view value);

} // namespace perchly
