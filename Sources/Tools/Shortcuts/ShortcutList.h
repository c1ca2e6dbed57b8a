#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace perchly {

struct Shortcut {
    std::string name; ///< UTF-8, in one line
    std::filesystem::path file;
};

/// What of a file's name is the shortcut's: an extension of letters and digits is left out.
[[nodiscard]] std::string shortcutName(const std::string &fileName);

/// The executable files of a folder, by their names in the person's order; where two files have
/// the same name, the first of them. Hidden files, backups ending in "~", and files whose name is
/// not UTF-8 or breaks the line are left out. Empty when there is no such folder; nothing when it
/// cannot be read.
[[nodiscard]] std::optional<std::vector<Shortcut>>
listShortcuts(const std::filesystem::path &folder);

} // namespace perchly
