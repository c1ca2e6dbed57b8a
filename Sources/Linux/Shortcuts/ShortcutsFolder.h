#pragma once

#include <filesystem>
#include <string>

/// Where the person's shortcuts are. Any thread; blocks on the file system.
namespace perchly::shortcuts {

/// The absolute path of the folder, whether it exists or not.
[[nodiscard]] std::filesystem::path folder();

/// Makes the folder, if there is none, and then a first shortcut and an explanation in it. Gives
/// the reason when it cannot be made.
[[nodiscard]] std::string prepareFolder();

} // namespace perchly::shortcuts
