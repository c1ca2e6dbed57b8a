#include "Companion.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace perchly {

QString findCompanion(const QString &name) {
    const QDir folder(QCoreApplication::applicationDirPath());
    for (const QString &place : {name, QStringLiteral(PERCHLY_LIBEXEC) + name}) {
        const QFileInfo file(folder.filePath(place));
        if (file.isFile() && file.isExecutable()) {
            return file.canonicalFilePath();
        }
    }
    return {};
}

} // namespace perchly
