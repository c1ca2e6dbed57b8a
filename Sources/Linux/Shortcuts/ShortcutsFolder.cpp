#include "ShortcutsFolder.h"

#include "WholeFile.h"

#include <QCollator>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

#include <algorithm>

namespace perchly::shortcutsfolder {

namespace {

constexpr const char *explanation =
    "Every executable file in this folder is a shortcut. Its name, without what follows the last\n"
    "dot, is the shortcut's name. To make one:\n"
    "\n"
    "  1. Copy \"Say hello.sh\" and give the copy the name that you want to see.\n"
    "  2. Open it in a text editor and write what it shall do, as in a terminal.\n"
    "  3. Press Refresh in the workspace window.\n"
    "\n"
    "A program of any language will do, and so will a link to one that lies elsewhere. Make it\n"
    "executable with \"chmod +x\" or in the file manager. It starts in your home folder; with "
    "status\n"
    "0 it is reported as finished, with any other as failed.\n";

constexpr const char *example =
    "#!/bin/sh\n"
    "# A first shortcut: shows a greeting where the desktop shows notifications.\n"
    "exec notify-send \"Hello\" \"This is your first shortcut.\"\n";

QString nameOf(QString fileName) {
    // An extension has at least one letter, unlike the end of "Version 1.2".
    static const QRegularExpression extension(
        QStringLiteral("\\.(?=[0-9]*[A-Za-z])[0-9A-Za-z]{1,8}$"));
    return fileName.remove(extension);
}

} // namespace

QString path() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/perchly/shortcuts");
}

std::optional<QList<Shortcut>> list() {
    const QFileInfo place(path());
    if (place.exists() && !(place.isDir() && place.isReadable())) {
        return std::nullopt;
    }
    QList<Shortcut> shortcuts;
    const auto files =
        QDir(place.filePath()).entryInfoList(QDir::Files | QDir::Executable, QDir::Name);
    for (const QFileInfo &file : files) {
        const QString fileName = file.fileName();
        if (!fileName.endsWith(u'~') && !fileName.contains(u'\n') && !fileName.contains(u'\r')) {
            shortcuts.append({nameOf(fileName), file.filePath()});
        }
    }
    const QCollator order;
    std::ranges::stable_sort(shortcuts, [&order](const Shortcut &one, const Shortcut &other) {
        return order.compare(one.name, other.name) < 0;
    });
    const auto hasSameName = [](const Shortcut &one, const Shortcut &other) {
        return one.name == other.name;
    };
    shortcuts.erase(std::unique(shortcuts.begin(), shortcuts.end(), hasSameName), shortcuts.end());
    return shortcuts;
}

QString prepare() {
    const QDir folder(path());
    if (folder.exists()) {
        return {};
    }
    const QString help = folder.filePath(QStringLiteral("How to make a shortcut.txt"));
    const QString first = folder.filePath(QStringLiteral("Say hello.sh"));
    QString error = wholefile::replace(help, explanation, wholefile::Durability::System);
    if (error.isEmpty()) {
        error = wholefile::replace(first, example, wholefile::Durability::System);
    }
    if (!error.isEmpty()) {
        QFile::remove(help);
        QDir().rmdir(folder.path()); // so that the next call creates everything
        return error;
    }
    QFile::setPermissions(first, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return {};
}

} // namespace perchly::shortcutsfolder
