#include "MediaSession.h"
#include "ProcessLimits.h"
#include "ScriptEngine.h"

#include <cstdio>
#include <filesystem>
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

/// Uses a separate program, since player scripts need GIO, which would more than double the time of
/// every reading.
int runPlayerScript(char **arguments) {
    std::error_code error;
    auto path = std::filesystem::read_symlink("/proc/self/exe", error);
    path.replace_filename("perchly-playerscript");
    execv(path.c_str(), arguments);
    return failure;
}

} // namespace

int main(int count, char **arguments) {
    const auto argument = [&](int index) {
        return index < count ? std::string_view(arguments[index]) : std::string_view();
    };
    if (count == 3 && argument(1) == "-e") {
        return runPlayerScript(arguments);
    }
    limitProcess(); // forbids running that program
    if (count == 5 && argument(1) == "-l" && argument(2) == "JavaScript" && argument(3) == "-e") {
        return runJavaScript(argument(4));
    }
    std::fputs("usage: perchly-scripthost [-l JavaScript] -e TEXT\n", stderr);
    return usage;
}
