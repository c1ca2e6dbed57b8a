#include "KeyFile.h"

#include <QFile>
#include <QFileInfo>

namespace perchly {

KeyFile readKeyFile(const QString &path) {
    KeyFile file(g_key_file_new());
    if (!QFileInfo(path).isFile() ||
        g_key_file_load_from_file(file.get(), QFile::encodeName(path).constData(), G_KEY_FILE_NONE,
                                  nullptr) == FALSE) {
        return nullptr;
    }
    return file;
}

QString keyFileText(const KeyFile &file, const QByteArray &group, const char *key) {
    return QString::fromUtf8(
        gio::Owned<char>(
            g_key_file_get_locale_string(file.get(), group.constData(), key, nullptr, nullptr))
            .get());
}

QString desktopEntryText(const QString &path, const char *key) {
    const KeyFile entry = readKeyFile(path);
    return entry ? keyFileText(entry, G_KEY_FILE_DESKTOP_GROUP, key) : QString();
}

} // namespace perchly
