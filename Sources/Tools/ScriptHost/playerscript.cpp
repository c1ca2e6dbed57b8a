#include "ProcessLimits.h"
#include "ScriptedPlayerCommand.h"

#include <cstdio>
#include <string>
#include <string_view>

using namespace perchly;

int main(int count, char **arguments) {
    limitProcess();
    if (count != 3 || std::string_view(arguments[1]) != "-e") {
        std::fputs("usage: perchly-playerscript -e TEXT\n", stderr);
        return 64;
    }
    const auto script = parsePlayerScript(arguments[2]);
    const auto state = script ? runPlayerScript(*script) : std::nullopt;
    if (!state) {
        return 1;
    }
    const std::string line = std::string(*state) + "\n";
    return std::fputs(line.c_str(), stdout) >= 0 && std::fflush(stdout) == 0 ? 0 : 1;
}
