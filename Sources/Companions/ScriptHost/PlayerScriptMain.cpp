#include "EndlessFolders.h"
#include "PlayerScript.h"
#include "ProcessLimits.h"

#include <cstdio>
#include <string>

using namespace perchly;

int main(int count, char **arguments) {
    limitProcess();
    hideEndlessApplicationFolders();
    const auto state = count == 3 ? runPlayerScript(arguments[2]) : std::nullopt;
    return state && std::puts(std::string(*state).c_str()) >= 0 && std::fflush(stdout) == 0 ? 0 : 1;
}
