#pragma once

#include "ApplicationCatalog.h"

#include <functional>
#include <stop_token>
#include <string>
#include <vector>

namespace perchly {

/// What decides which applications a menu shows, and under which names.
struct MenuRules {
    std::vector<std::string> folders = {};   ///< of desktop entries, the person's own first
    std::vector<std::string> languages = {}; ///< the person's, the preferred one first
    std::vector<std::string> desktops = {}; ///< names of the desktop that runs, most specific first

    /// Those of this session.
    [[nodiscard]] static MenuRules ofSession();
};

/// Told of every folder before it is read, with its path.
using FolderVisitor = std::function<void(const std::string &path)>;

/// The applications that menus show, sorted as a file browser does. An entry hides those of the
/// same identifier in later folders, even if it is hidden or broken itself; two in folders of
/// different identifiers are both found. Ordinary subfolders are searched; hidden files and
/// folders, what cannot be read, and what asks for a program that is not there, are left out. A
/// pure function of the file system, for any thread; ends early, with what it has, when it is asked
/// to stop.
[[nodiscard]] QList<FoundApplication> scanApplications(const MenuRules &rules,
                                                       const FolderVisitor &visit = {},
                                                       const std::stop_token &stop = {});

/// The same for single entries, which are not asked whether menus show them.
[[nodiscard]] QList<FoundApplication>
describeApplications(const QStringList &paths, const std::vector<std::string> &languages);

} // namespace perchly
