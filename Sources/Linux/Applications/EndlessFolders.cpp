#include "EndlessFolders.h"

#include <cstdlib>
#include <filesystem>
#include <glib.h>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

namespace perchly {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t maxFolders = 5000;
constexpr const char *homeName = "XDG_DATA_HOME";
constexpr const char *othersName = "XDG_DATA_DIRS";

bool isEndless(const std::string &dataFolder) {
    std::vector<fs::path> folders{fs::path(dataFolder) / "applications"};
    for (std::size_t next = 0; next < folders.size(); ++next) {
        if (folders.size() > maxFolders) {
            std::cerr << "perchly: Applications in " << folders[0]
                      << " are left out: it has too many subfolders.\n";
            return true;
        }
        std::error_code unreadable;
        fs::directory_iterator each(folders[next], unreadable);
        for (; !unreadable && each != fs::directory_iterator(); each.increment(unreadable)) {
            std::error_code tooManyLinks;
            if (each->is_directory(tooManyLinks)) {
                folders.push_back(each->path());
            }
        }
    }
    return false;
}

std::optional<std::string> variable(const char *name) {
    const char *value = std::getenv(name);
    return value != nullptr && *value != '\0' ? std::optional<std::string>(value) : std::nullopt;
}

void set(const char *name, const std::optional<std::string> &value) {
    if (value) {
        setenv(name, value->c_str(), 1);
    } else {
        unsetenv(name);
    }
}

} // namespace

void hideEndlessApplicationFolders() {
    const auto home = variable(homeName);
    const auto others = variable(othersName);
    const std::string userFolder = home.value_or(variable("HOME").value_or("") + "/.local/share");
    std::istringstream folders(others.value_or("/usr/local/share:/usr/share"));
    std::string left = "/nowhere"; // GLib ignores an empty list
    bool hides = false;
    for (std::string folder; std::getline(folders, folder, ':');) {
        if (isEndless(folder)) {
            hides = true;
        } else {
            left += ':' + folder;
        }
    }
    const bool hidesHome = isEndless(userFolder);
    if (hides || hidesHome) {
        set(homeName, hidesHome ? "/nowhere" : userFolder);
        set(othersName, left);
        g_get_user_data_dir(); // GLib keeps what it has read once
        g_get_system_data_dirs();
        set(homeName, home);
        set(othersName, others);
    }
}

} // namespace perchly
