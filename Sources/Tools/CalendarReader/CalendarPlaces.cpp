#include "CalendarPlaces.h"

#include "CalendarSource.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QSet>
#include <QStandardPaths>
#include <QUrl>

namespace perchly {

namespace {

constexpr int mostDepth = 4;
constexpr qsizetype mostFolders = 500;
constexpr qsizetype mostFiles = 50'000;
constexpr qint64 longestSetting = 64 * 1024;

QString folderOf(QStandardPaths::StandardLocation location, const char *inside) {
    return QStandardPaths::writableLocation(location) + u'/' + QLatin1StringView(inside);
}

QStringList linesOf(const QString &path) {
    QFile file(path);
    const bool readable = QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly);
    return readable ? QString::fromUtf8(file.read(longestSetting)).split(u'\n') : QStringList();
}

/// The values of a key in a settings file, whatever section they are in, without quotes.
QStringList valuesOf(const QString &path, QLatin1StringView key) {
    QStringList values;
    for (const QString &line : linesOf(path)) {
        const qsizetype equals = line.indexOf(u'=');
        QString name = line.left(equals).trimmed();
        name.remove(QLatin1StringView("[$e]")); // the value has variables in it
        if (equals > 0 && name == key) {
            QString value = line.mid(equals + 1).trimmed();
            if (value.size() > 1 && value.front() == value.back() &&
                (value.front() == u'"' || value.front() == u'\'')) {
                value = value.mid(1, value.size() - 2);
            }
            values.append(value);
        }
    }
    return values;
}

/// An absolute path, up to the first part that has a wildcard.
QString expanded(QString path) {
    if (path.startsWith(QLatin1StringView("file:"))) {
        path = QUrl(path).toLocalFile();
    }
    if (path == u'~' || path.startsWith(QLatin1StringView("~/"))) {
        path.replace(0, 1, QDir::homePath());
    }
    path.replace(QLatin1StringView("$HOME"), QDir::homePath());
    QStringList known;
    for (const QString &part : path.split(u'/')) {
        if (part.contains(u'*') || part.contains(u'?') || part.contains(u'[')) {
            break;
        }
        known.append(part);
    }
    const QString result = QDir::cleanPath(known.join(u'/'));
    return QDir::isAbsolutePath(result) ? result : QString();
}

QString displayName(const QFileInfo &place, const CalendarSource *source) {
    const QStringList own = linesOf(place.filePath() + QStringLiteral("/displayname"));
    if (!own.value(0).trimmed().isEmpty()) {
        return own.constFirst().trimmed();
    }
    return source == nullptr || source->name.isEmpty() ? place.completeBaseName() : source->name;
}

class Search {
public:
    explicit Search(const QList<CalendarSource> &sources) {
        for (const CalendarSource &source : sources) {
            m_sources.insert(source.uid, source);
        }
    }

    void lookIn(const QString &path, int depth = 0) {
        const QFileInfo place(path);
        if (place.isFile()) {
            watch(place.absolutePath());
            addFile(place);
        } else if (m_found.folders.size() < mostFolders && watch(path) && place.isDir()) {
            addFolder(place);
            const auto inside =
                QDir(path).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Readable);
            for (const QString &name : depth < mostDepth ? inside : QStringList()) {
                lookIn(path + u'/' + name, depth + 1);
            }
        }
    }

    [[nodiscard]] CalendarPlaces take() { return std::move(m_found); }

private:
    /// False for a folder that was looked at already.
    bool watch(const QString &path) {
        const QString real = QFileInfo(path).canonicalFilePath();
        const QString identity = real.isEmpty() ? path : real;
        if (m_known.contains(identity)) {
            return false;
        }
        m_known.insert(identity);
        m_found.folders.append(path);
        return true;
    }

    void addFile(const QFileInfo &file) {
        if (!m_known.contains(file.canonicalFilePath())) {
            m_known.insert(file.canonicalFilePath());
            m_found.calendars.append({file.completeBaseName(), file.filePath(), {file.filePath()}});
        }
    }

    void addFolder(const QFileInfo &folder) {
        const auto names =
            QDir(folder.filePath()).entryList({QStringLiteral("*.ics")}, QDir::Files, QDir::Name);
        CalendarPlace place{{}, folder.filePath(), {}};
        for (const QString &name : names.first(std::min(names.size(), mostFiles - m_files))) {
            const QString path = folder.filePath() + u'/' + name;
            if (!m_known.contains(path)) {
                place.files.append(path);
            }
        }
        m_files += place.files.size();
        const CalendarSource *source = sourceOf(folder);
        if (!place.files.isEmpty() && (source == nullptr || source->isShown)) {
            place.name = displayName(folder, source);
            m_found.calendars.append(place);
        }
    }

    /// What the desktop's calendar service says of a folder that is its own.
    [[nodiscard]] const CalendarSource *sourceOf(const QFileInfo &folder) const {
        const auto found =
            folder.path() == folderOf(QStandardPaths::GenericDataLocation, "evolution/calendar")
                ? m_sources.constFind(folder.fileName() == QLatin1StringView("system")
                                          ? QStringLiteral("system-calendar")
                                          : folder.fileName())
                : m_sources.cend();
        return found == m_sources.cend() ? nullptr : &*found;
    }

    QHash<QString, CalendarSource> m_sources;
    CalendarPlaces m_found;
    QSet<QString> m_known;
    qsizetype m_files = 0;
};

/// Where programs say that calendars are.
QStringList configuredPlaces(const QList<CalendarSource> &sources) {
    QStringList settings{folderOf(QStandardPaths::GenericConfigLocation, "khal/config"),
                         folderOf(QStandardPaths::GenericConfigLocation, "vdirsyncer/config"),
                         QDir::homePath() + QStringLiteral("/.vdirsyncer/config")};
    QStringList places;
    for (const QString &file : settings) {
        places += valuesOf(file, QLatin1StringView("path"));
    }
    const QDir config(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    const auto resources = config.entryList({QStringLiteral("akonadi_ical_resource_*rc"),
                                             QStringLiteral("akonadi_icaldir_resource_*rc")},
                                            QDir::Files, QDir::Name);
    for (const QString &name : resources) {
        places += valuesOf(config.filePath(name), QLatin1StringView("Path"));
    }
    for (const CalendarSource &source : sources) {
        if (source.isShown && !source.file.isEmpty()) {
            places.append(source.file);
        }
    }
    return places;
}

} // namespace

CalendarPlaces findCalendars() {
    const auto data = [](const char *inside) {
        return folderOf(QStandardPaths::GenericDataLocation, inside);
    };
    const QList<CalendarSource> sources = storedSources();
    Search search(sources);
    for (const QString &path : configuredPlaces(sources)) {
        const QString place = expanded(path);
        // Nobody's calendars are the whole of their home.
        if (!place.isEmpty() && !(QDir::homePath() + u'/').startsWith(place + u'/') &&
            place != u'/') {
            search.lookIn(place);
        }
    }
    search.lookIn(QDir::homePath() + QStringLiteral("/.calendars"));
    for (const char *folder :
         {"calendars", "vdirsyncer/calendars", "evolution/calendar", "korganizer",
          "apps/korganizer", "akonadi_icaldir_resource_0", "orage"}) {
        search.lookIn(data(folder));
    }
    return search.take();
}

} // namespace perchly
