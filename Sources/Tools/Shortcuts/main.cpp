#include "ShortcutList.h"
#include "ShortcutsFolder.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

using namespace perchly;

namespace {

constexpr int failure = 1;
constexpr int usage = 64;
constexpr int cannotRun = 126;

std::optional<std::vector<Shortcut>> list() {
    auto shortcuts = listShortcuts(shortcuts::folder());
    if (!shortcuts) {
        std::fprintf(stderr, "perchly-shortcuts: the folder %s cannot be read\n",
                     shortcuts::folder().c_str());
    }
    return shortcuts;
}

int printList() {
    const auto shortcuts = list();
    if (!shortcuts) {
        return failure;
    }
    for (const Shortcut &shortcut : *shortcuts) {
        std::puts(shortcut.name.c_str());
    }
    return std::fflush(stdout) == 0 ? 0 : failure;
}

/// The shortcut belongs to no terminal and starts in the person's home.
bool detach() {
    setsid();
    const char *home = std::getenv("HOME");
    if (home == nullptr || chdir(home) != 0) {
        return chdir("/") == 0;
    }
    return true;
}

/// The streams go nowhere: what a shortcut leaves running would hold them open.
bool silence() {
    const int nothing = open("/dev/null", O_RDWR);
    bool done = nothing >= 0;
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        done = done && dup2(nothing, stream) >= 0;
    }
    if (nothing > STDERR_FILENO) {
        close(nothing);
    }
    return done;
}

/// Becomes the shortcut, so that its exit status is this program's.
int run(std::string_view name) {
    const auto shortcuts = list();
    if (!shortcuts) {
        return failure;
    }
    const auto found = std::ranges::find(*shortcuts, name, &Shortcut::name);
    if (found == shortcuts->end()) {
        std::fprintf(stderr, "perchly-shortcuts: there is no shortcut named \"%.*s\"\n",
                     int(name.size()), name.data());
        return failure;
    }
    if (!detach() || !silence()) {
        return failure;
    }
    std::string file = found->file.string();
    std::array<char *, 2> arguments{file.data(), nullptr};
    execvp(file.c_str(), arguments.data()); // which also runs a script that names no interpreter
    return cannotRun;
}

} // namespace

int main(int count, char **arguments) {
    std::setlocale(LC_ALL, "");
    const std::string_view command = count > 1 ? arguments[1] : "";
    if (count == 2 && command == "list") {
        return printList();
    }
    if (count == 3 && command == "run") {
        return run(arguments[2]);
    }
    std::fputs("usage: perchly-shortcuts list\n       perchly-shortcuts run NAME\n", stderr);
    return usage;
}
