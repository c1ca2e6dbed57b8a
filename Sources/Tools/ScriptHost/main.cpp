#include "MediaSession.h"
#include "ProcessLimits.h"
#include "ScriptEngine.h"

#include <climits>
#include <cstdio>
#include <string>
#include <string_view>
#include <unistd.h>

using namespace perchly;

namespace {

constexpr int failure = 1;
constexpr int usage = 64;

int runJavaScript(std::string_view script) {
    MediaSession session;
    auto result = runScript(script, session);
    if (!result) {
        return failure;
    }
    result->push_back('\n');
    const bool written = std::fwrite(result->data(), 1, result->size(), stdout) == result->size();
    return written && std::fflush(stdout) == 0 ? 0 : failure;
}

/// The player script has a host of its own beside this one: it needs more of the desktop, and what
/// that costs to load would be paid by every reading.
int runPlayerScript(char **arguments) {
    std::string path(PATH_MAX, '\0');
    const ssize_t size = readlink("/proc/self/exe", path.data(), path.size());
    if (size <= 0) {
        return failure;
    }
    path.resize(static_cast<std::size_t>(size));
    path.replace(path.rfind('/') + 1, std::string::npos, "perchly-playerscript");
    execv(path.c_str(), arguments);
    return failure;
}

} // namespace

int main(int count, char **arguments) {
    limitProcess();
    const auto argument = [&](int index) {
        return index < count ? std::string_view(arguments[index]) : std::string_view();
    };
    if (count == 5 && argument(1) == "-l" && argument(2) == "JavaScript" && argument(3) == "-e") {
        return runJavaScript(argument(4));
    }
    if (count == 3 && argument(1) == "-e") {
        return runPlayerScript(arguments);
    }
    std::fputs("usage: perchly-scripthost [-l JavaScript] -e TEXT\n", stderr);
    return usage;
}
