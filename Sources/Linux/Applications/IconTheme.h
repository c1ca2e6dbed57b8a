#pragma once

#include <QImage>
#include <QList>
#include <QMutex>
#include <QString>
#include <QStringList>

namespace perchly {

/// Finds and reads pictures by the rules for icon themes. Works on any thread, unlike QIcon, since
/// the files may lie on a slow disk. A theme is read once, when it is first needed.
class IconTheme {
public:
    /// `folders` are searched in order for themes, and after them for pictures outside of themes.
    /// The theme's name may be empty.
    IconTheme(const QString &theme, const QStringList &folders);

    /// ~/.icons, `icons` in the data folders, and `pixmaps` there.
    [[nodiscard]] static QStringList standardFolders();

    /// The picture of that name, or in the file with that absolute path, as a desktop entry gives
    /// it. At most `side` pixels wide and high, smaller only if there is none as large. Null if
    /// there is none, or it cannot be read.
    [[nodiscard]] QImage image(const QString &name, int side);

    /// The file that suits the size best; empty if there is none.
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
    QList<Theme> m_themes; ///< the chosen one, those it inherits from, and the common one
};

} // namespace perchly
