#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace perchly {

/// Says which programs are there, looking for each name once. For one thread at a time, and for a
/// moment only: what is installed later is not seen.
class ProgramFinder {
public:
    ProgramFinder();

    /// Whether a name among the folders of PATH, or a path, is a program that may be run.
    [[nodiscard]] bool has(const std::string &program);

private:
    std::vector<std::string> m_folders;
    std::unordered_map<std::string, bool> m_known; ///< by name
};

} // namespace perchly
