#include "CalendarPlaces.h"

#include "CalendarSource.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>
#include <QStandardPaths>
#include <QUrl>

namespace perchly {

using namespace Qt::StringLiterals;

namespace {

constexpr int maxDepth = 4;
constexpr qsizetype maxFolders = 500;
constexpr qint64 maxSettingsBytes = 64 * 1024;

const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);

QString textOf(const QString &path) {
    QFile file(path);
    const bool isReadable = QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly);
    return isReadable ? QString::fromUtf8(file.read(maxSettingsBytes)) : QString();
}

/// Makes a path absolute and cuts it off before the first part with a wildcard.
QString expanded(QString path) {
    static const QRegularExpression wildcard(u"/[^/]*[*?[].*"_s);
    if (path.startsWith("file:"_L1)) {
        path = QUrl(path).toLocalFile();
    }
    if (path.startsWith("~/"_L1)) {
        path.replace(0, 1, QDir::homePath());
    }
    path.replace("$HOME"_L1, QDir::homePath());
    const QString result = QDir::cleanPath(path.remove(wildcard));
    return QDir::isAbsolutePath(result) ? result : QString();
}

class Search {
public:
    explicit Search(const CalendarSources &sources)
        : m_sources(sources) {}

    void lookIn(const QString &path, int depth = 0) {
        const QFileInfo place(path);
        if (m_found.folders.size() >= maxFolders || !isNew(path)) {
            return;
        }
        if (place.isFile()) {
            m_found.calendars.append({place.completeBaseName(), path, path});
            if (const QString folder = place.absolutePath(); isNew(folder)) {
                m_found.folders.append(folder);
            }
            return;
        }
        m_found.folders.append(path);
        addFolder(place);
        const auto inside =
            QDir(path).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Readable);
        for (const QString &name : depth < maxDepth ? inside : QStringList()) {
            lookIn(path + u'/' + name, depth + 1);
        }
    }

    [[nodiscard]] CalendarList take() { return std::move(m_found); }

private:
    bool isNew(const QString &path) {
        const QString real = QFileInfo(path).canonicalFilePath();
        const qsizetype before = m_known.size();
        m_known.insert(real.isEmpty() ? path : real);
        return m_known.size() > before;
    }

    void addFolder(const QFileInfo &folder) {
        const QString path = folder.filePath();
        const CalendarSource source = sourceOf(folder);
        if (source.isShown && QDirIterator(path, {u"*.ics"_s}, QDir::Files).hasNext()) {
            const QString own = textOf(path + u"/displayname"_s).section(u'\n', 0, 0).trimmed();
            const QString name = source.name.isEmpty() ? folder.completeBaseName() : source.name;
            m_found.calendars.append({own.isEmpty() ? name : own, path, path});
        }
    }

    /// The source of one of Evolution Data Server's folders; empty for any other folder.
    [[nodiscard]] CalendarSource sourceOf(const QFileInfo &folder) const {
        const QString name = folder.fileName();
        const bool isOwn = folder.path() == data + u"/evolution/calendar"_s;
        return m_sources.value(!isOwn              ? QString()
                               : name == u"system" ? u"system-calendar"_s
                                                   : name);
    }

    const CalendarSources &m_sources;
    CalendarList m_found;
    QSet<QString> m_known;
};

QStringList configuredPlaces(const CalendarSources &sources) {
    // In any section, quoted or not; "[$e]" marks a value with variables.
    static const QRegularExpression setting(uR"(^\s*path(?:\[\$e\])?\s*=\s*(["']?)(.*)\1\s*$)"_s,
                                            QRegularExpression::MultilineOption |
                                                QRegularExpression::CaseInsensitiveOption);
    QStringList files{config + u"/khal/config"_s, config + u"/vdirsyncer/config"_s,
                      QDir::homePath() + u"/.vdirsyncer/config"_s};
    const auto resources = QDir(config).entryInfoList(
        {u"akonadi_ical_resource_*rc"_s, u"akonadi_icaldir_resource_*rc"_s}, QDir::Files,
        QDir::Name);
    for (const QFileInfo &resource : resources) {
        files.append(resource.filePath());
    }
    QStringList places;
    for (const QString &file : files) {
        for (const QRegularExpressionMatch &match : setting.globalMatch(textOf(file))) {
            places.append(match.captured(2).trimmed());
        }
    }
    for (const CalendarSource &source : sources) {
        if (source.isShown) {
            places.append(source.file);
        }
    }
    return places;
}

} // namespace

CalendarList findCalendars() {
    const CalendarSources sources = storedSources();
    Search search(sources);
    for (const QString &path : configuredPlaces(sources)) {
        const QString place = expanded(path);
        // Not the home folder or one that contains it.
        if (!place.isEmpty() && place != u'/' &&
            !(QDir::homePath() + u'/').startsWith(place + u'/')) {
            search.lookIn(place);
        }
    }
    search.lookIn(QDir::homePath() + u"/.calendars"_s);
    for (const QString &folder :
         {u"calendars"_s, u"vdirsyncer/calendars"_s, u"evolution/calendar"_s, u"korganizer"_s,
          u"apps/korganizer"_s, u"akonadi_icaldir_resource_0"_s, u"orage"_s}) {
        search.lookIn(data + u'/' + folder);
    }
    return search.take();
}

} // namespace perchly
