#include "ShortcutList.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <tuple>
#include <unistd.h>

namespace perchly {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t longestExtension = 8;

/// Strictly: no overlong forms, no surrogates.
bool isUtf8(std::string_view text) {
    const auto byte = [&text](std::size_t index) {
        return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
    };
    for (std::size_t at = 0; at < text.size();) {
        const unsigned first = byte(at);
        const std::size_t length = first < 0x80   ? 1
                                   : first < 0xC2 ? 0
                                   : first < 0xE0 ? 2
                                   : first < 0xF0 ? 3
                                   : first < 0xF5 ? 4
                                                  : 0;
        const unsigned second = byte(at + 1);
        const bool wrongSecond =
            (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
            (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
        if (length == 0 || wrongSecond) {
            return false;
        }
        for (std::size_t next = 1; next < length; ++next) {
            if ((byte(at + next) & 0xC0U) != 0x80) {
                return false;
            }
        }
        at += length;
    }
    return true;
}

bool canBeListed(const std::string &fileName) {
    return !fileName.starts_with('.') && !fileName.ends_with('~') &&
           fileName.find_first_of("\n\r") == std::string::npos && isUtf8(fileName);
}

bool isExecutable(const fs::path &file) {
    std::error_code failure;
    return fs::is_regular_file(file, failure) && access(file.c_str(), X_OK) == 0;
}

bool comesBefore(const Shortcut &one, const Shortcut &other) {
    const int names = std::strcoll(one.name.c_str(), other.name.c_str());
    return names != 0 ? names < 0 : std::tie(one.name, one.file) < std::tie(other.name, other.file);
}

} // namespace

std::string shortcutName(const std::string &fileName) {
    const std::size_t dot = fileName.rfind('.');
    if (dot == std::string::npos || dot == 0) {
        return fileName;
    }
    const std::string_view extension = std::string_view(fileName).substr(dot + 1);
    const auto isLetter = [](unsigned char c) { return c < 0x80 && std::isalpha(c) != 0; };
    const auto isPlain = [](unsigned char c) { return c < 0x80 && std::isalnum(c) != 0; };
    const bool isExtension = extension.size() <= longestExtension &&
                             std::ranges::all_of(extension, isPlain) &&
                             std::ranges::any_of(extension, isLetter); // not in "Version 1.2"
    return isExtension ? fileName.substr(0, dot) : fileName;
}

std::optional<std::vector<Shortcut>> listShortcuts(const fs::path &folder) {
    std::vector<Shortcut> shortcuts;
    std::error_code failure;
    fs::directory_iterator entry(folder, failure);
    if (failure == std::errc::no_such_file_or_directory) {
        return shortcuts;
    }
    for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
        const std::string fileName = entry->path().filename().string();
        if (canBeListed(fileName) && isExecutable(entry->path())) {
            shortcuts.push_back({shortcutName(fileName), entry->path()});
        }
    }
    if (failure) {
        return std::nullopt;
    }
    std::ranges::sort(shortcuts, comesBefore);
    const auto repeated = std::unique(
        shortcuts.begin(), shortcuts.end(),
        [](const Shortcut &one, const Shortcut &other) { return one.name == other.name; });
    shortcuts.erase(repeated, shortcuts.end());
    return shortcuts;
}

} // namespace perchly
