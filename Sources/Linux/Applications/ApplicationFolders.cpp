#include "ApplicationFolders.h"

#include <QDir>
#include <QStandardPaths>

#include <algorithm>

namespace perchly {

bool isInApplicationFolders(const QString &path) {
    const QString entry = QDir::cleanPath(path);
    const QStringList folders =
        QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    return entry.endsWith(QStringLiteral(".desktop")) &&
           std::ranges::any_of(folders, [&entry](const QString &folder) {
               return entry.startsWith(QDir::cleanPath(folder) + u'/');
           });
}

} // namespace perchly
