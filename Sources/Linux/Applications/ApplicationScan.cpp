#include "ApplicationScan.h"

#include "DesktopEntry.h"
#include "EntryFile.h"
#include "ProgramFinder.h"

#include <QCollator>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <glib.h>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>
#include <unordered_set>

namespace perchly {

namespace {

constexpr std::string_view entryEnding(".desktop");
constexpr int deepest = 16; // folders that link to themselves have no end

struct Found {
    QCollatorSortKey key;
    std::size_t folder; ///< place among the folders
    FoundApplication application;

    bool operator<(const Found &other) const {
        const int order = key.compare(other.key);
        return order != 0               ? order < 0
               : folder != other.folder ? folder < other.folder
                                        : application.path < other.application.path;
    }
};

QCollator fileBrowserOrder() {
    QLocale locale = QLocale().collation();
    if (locale.language() == QLocale::C) {
        locale =
            QLocale(QLocale::English, QLocale::UnitedStates); // C knows neither case nor numbers
    }
    QCollator collator(locale);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    return collator;
}

QString nameOf(const DesktopEntry *entry, const QString &path) {
    return entry != nullptr && !entry->name.empty() ? QString::fromStdString(entry->name)
                                                    : QFileInfo(path).completeBaseName();
}

class Scan {
public:
    Scan(const MenuRules &rules, const FolderVisitor &visit, const std::stop_token &stop)
        : m_rules(rules)
        , m_visit(visit)
        , m_stop(stop) {}

    QList<FoundApplication> run() {
        for (; m_folder < m_rules.folders.size(); ++m_folder) {
            readFolder(m_rules.folders[m_folder], {}, 0);
        }
        std::ranges::sort(m_found, std::less<>());
        QList<FoundApplication> applications;
        applications.reserve(qsizetype(m_found.size()));
        for (Found &found : m_found) {
            applications.append(std::move(found.application));
        }
        return applications;
    }

private:
    struct Close {
        void operator()(DIR *folder) const { closedir(folder); }
    };
    using Folder = std::unique_ptr<DIR, Close>;

    static bool isFolder(int parent, const dirent &entry) {
        if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK) {
            return entry.d_type == DT_DIR;
        }
        struct stat facts = {};
        return fstatat(parent, entry.d_name, &facts, 0) == 0 && S_ISDIR(facts.st_mode);
    }

    void readFolder(const std::string &path, const std::string &prefix, int depth) {
        if (m_visit) {
            m_visit(path);
        }
        const Folder folder(opendir(path.c_str()));
        if (!folder) {
            return;
        }
        std::vector<std::string> inside;
        while (const dirent *entry = readdir(folder.get())) {
            const std::string_view name(entry->d_name);
            if (m_stop.stop_requested() || name.starts_with('.')) {
                continue;
            }
            if (name.ends_with(entryEnding)) {
                if (m_seen.insert(prefix + std::string(name)).second) {
                    readEntry(dirfd(folder.get()), entry->d_name, path);
                }
            } else if (isFolder(dirfd(folder.get()), *entry)) {
                inside.emplace_back(name);
            }
        }
        for (const std::string &name : inside) {
            if (depth < deepest) {
                readFolder(path + '/' + name, prefix + name + '-', depth + 1);
            }
        }
    }

    void readEntry(int folder, const char *file, const std::string &folderPath) {
        const auto text = m_file.read(folder, file);
        if (!text) {
            return;
        }
        const auto entry = readDesktopEntry(*text, m_rules.languages);
        const auto isThere = [this](const std::string &program) {
            return program.empty() || m_programs.has(program);
        };
        if (!entry || entry->hidden || !entry->isShownIn(m_rules.desktops) ||
            !isThere(entry->tryProgram) || !isThere(entry->program)) {
            return;
        }
        const QString path = QFile::decodeName((folderPath + '/' + file).c_str());
        const QString name = nameOf(&*entry, path);
        m_found.push_back({m_order.sortKey(name), m_folder, {path, name}});
    }

    const MenuRules &m_rules;
    const FolderVisitor &m_visit;
    const std::stop_token &m_stop;
    const QCollator m_order = fileBrowserOrder();
    EntryFile m_file;
    ProgramFinder m_programs;
    std::size_t m_folder = 0;
    std::unordered_set<std::string> m_seen; ///< identifiers
    std::vector<Found> m_found;
};

} // namespace

MenuRules MenuRules::ofSession() {
    MenuRules rules;
    for (const QString &folder :
         QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        rules.folders.push_back(
            QFile::encodeName(folder + QStringLiteral("/applications")).toStdString());
    }
    for (const char *const *language = g_get_language_names(); *language != nullptr; ++language) {
        rules.languages.emplace_back(*language);
    }
    for (const QByteArray &desktop : qgetenv("XDG_CURRENT_DESKTOP").split(':')) {
        if (!desktop.isEmpty()) {
            rules.desktops.push_back(desktop.toStdString());
        }
    }
    return rules;
}

QList<FoundApplication> scanApplications(const MenuRules &rules, const FolderVisitor &visit,
                                         const std::stop_token &stop) {
    return Scan(rules, visit, stop).run();
}

QList<FoundApplication> describeApplications(const QStringList &paths,
                                             const std::vector<std::string> &languages) {
    EntryFile file;
    QList<FoundApplication> applications;
    for (const QString &path : paths) {
        const auto text = file.read(AT_FDCWD, QFile::encodeName(path).constData());
        const auto entry = text ? readDesktopEntry(*text, languages) : std::nullopt;
        applications.append({path, nameOf(entry ? &*entry : nullptr, path)});
    }
    return applications;
}

} // namespace perchly
