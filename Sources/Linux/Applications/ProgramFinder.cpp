#include "ProgramFinder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace perchly {

namespace {

bool isProgram(const std::string &path) {
    struct stat facts = {};
    return stat(path.c_str(), &facts) == 0 && !S_ISDIR(facts.st_mode) &&
           access(path.c_str(), X_OK) == 0;
}

} // namespace

ProgramFinder::ProgramFinder() {
    const char *path = std::getenv("PATH");
    std::istringstream folders(path != nullptr ? path : "/bin:/usr/bin:.");
    for (std::string folder; std::getline(folders, folder, ':');) {
        m_folders.push_back(folder.empty() ? "." : folder);
    }
}

bool ProgramFinder::has(const std::string &program) {
    if (program.find('/') != std::string::npos) {
        return isProgram(program);
    }
    const auto [known, isNew] = m_known.try_emplace(program, false);
    if (isNew) {
        known->second = std::ranges::any_of(
            m_folders, [&](const std::string &place) { return isProgram(place + '/' + program); });
    }
    return known->second;
}

} // namespace perchly
