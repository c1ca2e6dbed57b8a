#include "ShortcutsFolder.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>

namespace perchly::shortcuts {

namespace fs = std::filesystem;

namespace {

constexpr const char *explanation =
    "Every executable file in this folder is a shortcut. Its name, without what follows the last\n"
    "dot, is the shortcut's name. To make one:\n"
    "\n"
    "  1. Copy \"Say hello.sh\" and give the copy the name that you want to see.\n"
    "  2. Open it in a text editor and write what it shall do, as in a terminal.\n"
    "  3. Press Refresh in the workspace window.\n"
    "\n"
    "A program of any language will do, and so will a link to one that lies elsewhere. Make it\n"
    "executable with \"chmod +x\" or in the file manager. It starts in your home folder; with "
    "status\n"
    "0 it is reported as finished, with any other as failed.\n";

constexpr const char *example =
    "#!/bin/sh\n"
    "# A first shortcut: shows a greeting where the desktop shows notifications.\n"
    "exec notify-send \"Hello\" \"This is your first shortcut.\"\n";

fs::path environmentFolder(const char *name) {
    const char *value = std::getenv(name);
    const fs::path folder(value != nullptr ? value : "");
    return folder.is_absolute() ? folder : fs::path(); // a relative one is to be ignored
}

/// Leaves no part of a file. Empty, or why it failed.
std::string write(const fs::path &path, const char *text) {
    std::error_code failure;
    if (fs::exists(path, failure)) {
        return {};
    }
    std::ofstream file(path);
    file << text;
    file.close();
    if (file) {
        return {};
    }
    failure.assign(errno, std::generic_category());
    std::string reason = failure.message();
    fs::remove(path, failure);
    return reason;
}

} // namespace

fs::path folder() {
    fs::path data = environmentFolder("XDG_DATA_HOME");
    if (data.empty()) {
        data = environmentFolder("HOME") / ".local/share";
    }
    return data / "perchly/shortcuts";
}

std::string prepareFolder() {
    std::error_code failure;
    const fs::path place = folder();
    if (fs::is_directory(place, failure)) {
        return {};
    }
    fs::create_directories(place, failure);
    if (failure) {
        return failure.message();
    }
    fs::permissions(place, fs::perms::owner_all, failure);
    const fs::path help = place / "How to make a shortcut.txt";
    const fs::path first = place / "Say hello.sh";
    std::string reason = write(help, explanation);
    if (reason.empty()) {
        reason = write(first, example);
    }
    if (!reason.empty()) {
        fs::remove(help, failure);
        fs::remove(place, failure); // so that the next time makes all of it
        return reason;
    }
    fs::permissions(first, fs::perms::owner_all, failure);
    return {};
}

} // namespace perchly::shortcuts
