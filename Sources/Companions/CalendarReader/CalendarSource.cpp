#include "CalendarSource.h"

#include <QDir>
#include <QStandardPaths>

#include <glib.h>
#include <memory>

namespace perchly {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 maxSourceBytes = 64 * 1024;

} // namespace

void addSource(CalendarSources &sources, const QString &uid, const QByteArray &text) {
    const std::unique_ptr<GKeyFile, void (*)(GKeyFile *)> file(g_key_file_new(), g_key_file_unref);
    g_key_file_load_from_data(file.get(), text.constData(), gsize(text.size()),
                              G_KEY_FILE_KEEP_TRANSLATIONS, nullptr);
    const auto value = [&file](const char *group, const char *key) {
        const std::unique_ptr<char, void (*)(void *)> found(
            g_key_file_get_locale_string(file.get(), group, key, nullptr, nullptr), g_free);
        return QString::fromUtf8(found.get()).trimmed();
    };
    if (g_key_file_has_group(file.get(), "Data Source") == 0) {
        return;
    }
    const QString account = value("Collection", "BackendName");
    sources[uid] = {
        .uid = uid,
        .parent = value("Data Source", "Parent"),
        .name = value("Data Source", "DisplayName"),
        .kind = value("Calendar", "BackendName"),
        .file = value("Local", "CustomFile"),
        .isOnlineAccount = !account.isEmpty() && account != u"none" &&
                           value("Collection", "CalendarEnabled") != u"false",
        .isShown = value("Data Source", "Enabled") != u"false" &&
                   value("Calendar", "Selected") != u"false",
    };
}

QString sourcesFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/evolution/sources"_s;
}

CalendarSources storedSources() {
    CalendarSources sources;
    const QDir folder(sourcesFolder());
    for (const QFileInfo &info : folder.entryInfoList({u"*.source"_s}, QDir::Files)) {
        QFile file(info.filePath());
        if (file.open(QIODevice::ReadOnly)) {
            addSource(sources, info.completeBaseName(), file.read(maxSourceBytes));
        }
    }
    return sources;
}

} // namespace perchly
