#pragma once

#include <QImage>
#include <QList>
#include <QMutex>
#include <QString>
#include <QStringList>

namespace perchly {

/// Finds and reads pictures by the rules for icon themes. Unlike QIcon it works on any thread,
/// since the files may be on a slow disk. Reads a theme once, when it is first needed.
class IconTheme {
public:
    /// `folders` are searched in order for themes, and then for pictures outside themes. The
    /// theme's name may be empty.
    IconTheme(const QString &theme, const QStringList &folders);

    [[nodiscard]] const QString &name() const { return m_name; }

    /// ~/.icons, and `icons` and `pixmaps` in the data folders.
    [[nodiscard]] static QStringList standardFolders();

    /// The picture that a desktop entry names, by an icon's name or an absolute path. At most
    /// `side` pixels wide and high, smaller only if no larger one exists. Null if there is no
    /// picture or it cannot be read.
    [[nodiscard]] QImage image(const QString &name, int side);

    /// The file with the best size, or empty.
    [[nodiscard]] QString file(const QString &name, int side);

private:
    struct Folder {
        QString path; ///< within the theme
        int min = 0;
        int max = 0;
    };
    struct Theme {
        QString name;
        QList<Folder> folders;
    };

    [[nodiscard]] const QList<Theme> &themes();
    void load(const QString &name);
    [[nodiscard]] QString fileIn(const Theme &theme, const QString &name, int side) const;

    const QString m_name;
    const QStringList m_folders;
    QMutex m_mutex;        ///< guards the loading of the themes
    QList<Theme> m_themes; ///< the chosen one or else Adwaita, its parents, hicolor
};

} // namespace perchly
