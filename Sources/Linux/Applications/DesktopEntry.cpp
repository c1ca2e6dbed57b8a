#include "DesktopEntry.h"

#include "KeyFileLines.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <memory>

namespace perchly {

namespace {

enum class Key { Type, Exec, TryExec, Hidden, NoDisplay, OnlyShowIn, NotShowIn, Encoding };

constexpr std::array keyNames{
    std::pair{std::string_view("Type"), Key::Type},
    std::pair{std::string_view("Exec"), Key::Exec},
    std::pair{std::string_view("TryExec"), Key::TryExec},
    std::pair{std::string_view("Hidden"), Key::Hidden},
    std::pair{std::string_view("NoDisplay"), Key::NoDisplay},
    std::pair{std::string_view("OnlyShowIn"), Key::OnlyShowIn},
    std::pair{std::string_view("NotShowIn"), Key::NotShowIn},
    std::pair{std::string_view("Encoding"), Key::Encoding},
};
constexpr std::string_view nameKey("Name");

/// The values as they stand in the text; a value without data was not given.
struct RawEntry {
    std::array<std::string_view, keyNames.size()> values;
    std::vector<std::string_view> names; ///< by language, and after them the plain one

    std::string_view &at(Key key) { return values.at(std::size_t(key)); }
};

void keep(RawEntry &entry, const KeyFileLine &line, const std::vector<std::string> &languages) {
    if (line.key.starts_with(nameKey)) {
        const std::string_view rest = line.key.substr(nameKey.size());
        if (rest.empty()) {
            entry.names.back() = line.value;
        } else if (rest.front() == '[') {
            const auto found = std::ranges::find(languages, rest.substr(1, rest.size() - 2));
            if (found != languages.end()) {
                entry.names[std::size_t(found - languages.begin())] = line.value;
            }
        }
        return;
    }
    const auto found =
        std::ranges::find(keyNames, line.key, [](const auto &key) { return key.first; });
    if (found != keyNames.end()) {
        entry.at(found->second) = line.value;
    }
}

bool readRaw(std::string_view text, const std::vector<std::string> &languages, RawEntry &entry) {
    constexpr std::string_view entryGroup("Desktop Entry");
    bool anyGroup = false;
    bool inEntry = false;
    while (const auto line = takeKeyFileLine(text)) {
        switch (line->kind) {
        case KeyFileLine::Kind::Nothing:
            break;
        case KeyFileLine::Kind::Group:
            inEntry = line->key == entryGroup;
            if (!anyGroup && !inEntry) {
                return false;
            }
            anyGroup = true;
            break;
        case KeyFileLine::Kind::Value:
            if (!anyGroup) {
                return false;
            }
            if (inEntry) {
                keep(entry, *line, languages);
            }
            break;
        case KeyFileLine::Kind::Broken:
            return false;
        }
    }
    const std::string_view encoding = entry.at(Key::Encoding);
    return entry.at(Key::Type) == "Application" &&
           (encoding.data() == nullptr ||
            g_ascii_strcasecmp(std::string(encoding).c_str(), "UTF-8") == 0);
}

/// The program that a command line begins with; nothing if the line cannot be split into words.
std::optional<std::string> firstWord(const std::string &commandLine) {
    if (commandLine.find_first_of("\"'\\#") == std::string::npos) {
        constexpr std::string_view blank(" \t\n");
        const std::size_t start = commandLine.find_first_not_of(blank);
        if (start == std::string::npos) {
            return std::nullopt;
        }
        return commandLine.substr(start, commandLine.find_first_of(blank, start) - start);
    }
    char **words = nullptr;
    if (g_shell_parse_argv(commandLine.c_str(), nullptr, &words, nullptr) == FALSE) {
        return std::nullopt;
    }
    const std::unique_ptr<char *, decltype(&g_strfreev)> owned(words, &g_strfreev);
    return std::string(words[0]);
}

} // namespace

bool DesktopEntry::isShownIn(const std::vector<std::string> &desktops) const {
    const auto names = [](const auto &list, const std::string &desktop) {
        return list && std::ranges::find(*list, desktop) != list->end();
    };
    if (noDisplay) {
        return false;
    }
    for (const std::string &desktop : desktops) {
        if (names(onlyShowIn, desktop)) {
            return true;
        }
        if (names(notShowIn, desktop)) {
            return false;
        }
    }
    return !onlyShowIn;
}

std::optional<DesktopEntry> readDesktopEntry(std::string_view text,
                                             const std::vector<std::string> &languages) {
    RawEntry raw{.values = {}, .names = std::vector<std::string_view>(languages.size() + 1)};
    if (!readRaw(text, languages, raw)) {
        return std::nullopt;
    }
    DesktopEntry entry{.tryProgram = keyFileText(raw.at(Key::TryExec)).value_or(""),
                       .hidden = keyFileBoolean(raw.at(Key::Hidden)),
                       .noDisplay = keyFileBoolean(raw.at(Key::NoDisplay)),
                       .onlyShowIn = keyFileList(raw.at(Key::OnlyShowIn)),
                       .notShowIn = keyFileList(raw.at(Key::NotShowIn))};
    for (const std::string_view name : raw.names) {
        if (const auto value = keyFileText(name)) {
            entry.name = *value;
            break;
        }
    }
    const std::string commandLine = keyFileText(raw.at(Key::Exec)).value_or("");
    if (!commandLine.empty()) {
        const auto program = firstWord(commandLine);
        if (!program) {
            return std::nullopt;
        }
        entry.program = *program;
    }
    return entry;
}

} // namespace perchly
