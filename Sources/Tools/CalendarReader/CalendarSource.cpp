#include "CalendarSource.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QStandardPaths>

#include <algorithm>
#include <glib.h>
#include <memory>

namespace perchly {

namespace {

constexpr qint64 longestSource = 64 * 1024;
constexpr qsizetype mostCalendars = 100;
constexpr int mostAncestors = 10;

struct Release {
    void operator()(GKeyFile *file) const { g_key_file_unref(file); }
    void operator()(char *text) const { g_free(text); }
};

using KeyFile = std::unique_ptr<GKeyFile, Release>;

KeyFile parse(const QByteArray &text) {
    KeyFile file(g_key_file_new());
    const bool read = g_key_file_load_from_data(file.get(), text.constData(), gsize(text.size()),
                                                G_KEY_FILE_KEEP_TRANSLATIONS, nullptr) != 0;
    return read ? std::move(file) : nullptr;
}

QString textOf(const KeyFile &file, const char *group, const char *key) {
    const std::unique_ptr<char, Release> text(
        g_key_file_get_locale_string(file.get(), group, key, nullptr, nullptr));
    return QString::fromUtf8(text.get());
}

/// What is not said is so.
bool isSo(const KeyFile &file, const char *group, const char *key) {
    return textOf(file, group, key).trimmed() != QLatin1StringView("false");
}

QByteArray fileBytes(const QString &path) {
    QFile file(path);
    const bool readable = QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly);
    return readable ? file.read(longestSource) : QByteArray();
}

bool isServiceKind(const QString &kind) {
    // Birthdays and the weather take whole days.
    return !kind.isEmpty() && kind != QLatin1StringView("local") &&
           kind != QLatin1StringView("contacts") && kind != QLatin1StringView("weather");
}

} // namespace

std::optional<CalendarSource> parseSource(const QString &uid, const QByteArray &text) {
    const KeyFile file = parse(text);
    if (!file || g_key_file_has_group(file.get(), "Data Source") == 0) {
        return std::nullopt;
    }
    CalendarSource source{.uid = uid,
                          .parent = textOf(file, "Data Source", "Parent"),
                          .name = textOf(file, "Data Source", "DisplayName"),
                          .kind = textOf(file, "Calendar", "BackendName"),
                          .file = textOf(file, "Local", "CustomFile")};
    source.isShown = isSo(file, "Data Source", "Enabled") && isSo(file, "Calendar", "Selected");
    const QString account = textOf(file, "Collection", "BackendName");
    source.isOnlineAccount = !account.isEmpty() && account != QLatin1StringView("none") &&
                             isSo(file, "Collection", "CalendarEnabled");
    return source;
}

QString sourcesFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/evolution/sources");
}

QList<CalendarSource> storedSources() {
    QList<CalendarSource> sources;
    const auto files = QDir(sourcesFolder()).entryInfoList({QStringLiteral("*.source")});
    for (const QFileInfo &file : files) {
        if (const auto source = parseSource(file.completeBaseName(), fileBytes(file.filePath()))) {
            sources.append(*source);
        }
    }
    return sources;
}

QList<ServiceCalendar> serviceCalendars(const QList<CalendarSource> &sources) {
    QHash<QString, const CalendarSource *> byUid;
    for (const CalendarSource &source : sources) {
        byUid.insert(source.uid, &source);
    }
    QList<ServiceCalendar> calendars;
    for (const CalendarSource &source : sources) {
        bool isShown = source.isShown;
        const CalendarSource *above = byUid.value(source.parent);
        const QString account = above == nullptr ? QString() : above->name;
        for (int depth = 0; above != nullptr && depth < mostAncestors; ++depth) {
            isShown = isShown && above->isShown;
            above = byUid.value(above->parent);
        }
        if (isShown && isServiceKind(source.kind)) {
            calendars.append({source.uid, source.name, account});
        }
    }
    std::ranges::sort(calendars, {}, &ServiceCalendar::uid); // the same order every time
    return calendars.first(std::min(calendars.size(), mostCalendars));
}

bool mayHaveServiceCalendars() {
    const bool stored = std::ranges::any_of(storedSources(), [](const CalendarSource &source) {
        return source.isShown && (source.isOnlineAccount || isServiceKind(source.kind));
    });
    return stored ||
           fileBytes(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                     QStringLiteral("/goa-1.0/accounts.conf"))
               .contains("CalendarEnabled=true");
}

} // namespace perchly
