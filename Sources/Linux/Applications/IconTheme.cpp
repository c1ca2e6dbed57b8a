#include "IconTheme.h"

#include "KeyFile.h"
#include "SvgLinks.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <limits>

namespace perchly {

namespace {

constexpr std::array endings{QLatin1StringView(".svg"), QLatin1StringView(".png"),
                             QLatin1StringView(".xpm")};

int number(const KeyFile &file, const QByteArray &group, const char *key, int otherwise) {
    const int value = g_key_file_get_integer(file.get(), group.constData(), key, nullptr);
    return value > 0 && value <= 4096 ? value : otherwise;
}

QStringList list(const KeyFile &file, const char *key) {
    return keyFileText(file, "Icon Theme", key).split(QLatin1Char(','), Qt::SkipEmptyParts);
}

} // namespace

IconTheme::IconTheme(const QString &theme, const QStringList &folders)
    : m_name(theme)
    , m_folders(folders) {}

QStringList IconTheme::standardFolders() {
    QStringList folders{QDir::homePath() + QStringLiteral("/.icons")};
    const QStringList data = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    for (const QLatin1StringView kind :
         {QLatin1StringView("/icons"), QLatin1StringView("/pixmaps")}) {
        for (const QString &folder : data) {
            folders.append(folder + kind);
        }
    }
    return folders;
}

QImage IconTheme::image(const QString &name, int side) {
    const QString found = QDir::isAbsolutePath(name) ? name : file(name, side);
    // Reading anything but a regular file could block forever.
    if (found.isEmpty() || !QFileInfo(found).isFile()) {
        return {};
    }
    QFile source(found);
    if (!source.open(QIODevice::ReadOnly)) {
        return {};
    }
    QImageReader reader(&source);
    const bool drawn = reader.format().startsWith("svg");
    if (drawn && svgMayNameFiles(source)) {
        return {};
    }
    const QSize natural = reader.size();
    if (natural.isValid() && (drawn || std::max(natural.width(), natural.height()) > side)) {
        reader.setScaledSize(natural.scaled(side, side, Qt::KeepAspectRatio).expandedTo({1, 1}));
    }
    return reader.read();
}

QString IconTheme::file(const QString &name, int side) {
    QString plain = name;
    for (const QLatin1StringView ending : endings) {
        if (plain.endsWith(ending)) {
            plain.chop(ending.size());
        }
    }
    if (plain.isEmpty() || plain.contains(QLatin1Char('/'))) {
        return {};
    }
    for (const Theme &theme : themes()) {
        const QString found = fileIn(theme, plain, side);
        if (!found.isEmpty()) {
            return found;
        }
    }
    for (const QString &folder : m_folders) {
        for (const QLatin1StringView ending : endings) {
            const QString candidate = folder + QLatin1Char('/') + plain + ending;
            if (QFile::exists(candidate)) {
                return candidate;
            }
        }
    }
    return {};
}

const QList<IconTheme::Theme> &IconTheme::themes() {
    const QMutexLocker lock(&m_mutex);
    if (m_themes.isEmpty()) {
        if (m_name != QLatin1StringView("hicolor")) { // Qt's name for no theme
            load(m_name);
        }
        if (m_themes.isEmpty() || m_themes.constFirst().folders.isEmpty()) { // not installed
            load(QStringLiteral("Adwaita"));
        }
        load(QStringLiteral("hicolor"));
    }
    return m_themes;
}

void IconTheme::load(const QString &name) {
    const bool known = std::ranges::find(m_themes, name, &Theme::name) != m_themes.cend();
    if (known || name.isEmpty() || name.contains(QLatin1Char('/'))) {
        return;
    }
    Theme theme{.name = name, .folders = {}};
    QStringList parents;
    for (const QString &base : m_folders) {
        const KeyFile index =
            readKeyFile(base + QLatin1Char('/') + name + QLatin1StringView("/index.theme"));
        if (!index) {
            continue;
        }
        for (const QString &path : list(index, "Directories") + list(index, "ScaledDirectories")) {
            const QByteArray group = path.toUtf8();
            const int size = number(index, group, "Size", 48);
            const int scale = number(index, group, "Scale", 1);
            const bool scalable =
                keyFileText(index, group, "Type") == QLatin1StringView("Scalable");
            theme.folders.append(
                {path, scale * (scalable ? number(index, group, "MinSize", size) : size),
                 scale * (scalable ? number(index, group, "MaxSize", size) : size)});
        }
        parents = list(index, "Inherits");
        break;
    }
    m_themes.append(theme);
    for (const QString &parent : parents) {
        if (parent != QLatin1StringView("hicolor")) { // added last
            load(parent.trimmed());
        }
    }
}

QString IconTheme::fileIn(const Theme &theme, const QString &name, int side) const {
    QString best;
    int least = std::numeric_limits<int>::max();
    for (const Folder &folder : theme.folders) {
        // Enlarged pictures look worse than reduced ones.
        const int distance =
            folder.max < side ? 4 * (side - folder.max) : std::max(0, folder.min - side);
        if (distance >= least) {
            continue;
        }
        for (const QString &base : m_folders) {
            for (const QLatin1StringView ending : endings) {
                const QString candidate = base + QLatin1Char('/') + theme.name + QLatin1Char('/') +
                                          folder.path + QLatin1Char('/') + name + ending;
                if (distance < least && QFile::exists(candidate)) {
                    best = candidate;
                    least = distance;
                }
            }
        }
    }
    return best;
}

} // namespace perchly
