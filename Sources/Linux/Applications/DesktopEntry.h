#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace perchly {

/// The few things in a desktop entry that decide whether and how a menu shows an application. All
/// texts are UTF-8.
struct DesktopEntry {
    std::string name = {}; ///< in the first of the languages that has one; empty if there is none
    std::string program = {};    ///< the first word of the command line; empty without one
    std::string tryProgram = {}; ///< must be there as well; empty without one
    bool hidden = false;         ///< as if it were deleted
    bool noDisplay = false;
    std::optional<std::vector<std::string>> onlyShowIn = std::nullopt; ///< desktops
    std::optional<std::vector<std::string>> notShowIn = std::nullopt;

    /// Whether menus of the person's desktop show it. `desktops` are its names, most specific
    /// first.
    [[nodiscard]] bool isShownIn(const std::vector<std::string> &desktops) const;
};

/// Reads an entry's text. Nothing for what is no application, and for what the desktop's own
/// library rejects: any line that is neither group, comment nor key, or a command line that cannot
/// be split. `languages` are tried in order for the name; the last resort is the plain key.
/// Any thread.
[[nodiscard]] std::optional<DesktopEntry>
readDesktopEntry(std::string_view text, const std::vector<std::string> &languages);

} // namespace perchly
