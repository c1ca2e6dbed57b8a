#include "AutostartLoginItem.h"

#include "WholeFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <gio/gdesktopappinfo.h>

#include <memory>

namespace perchly {

namespace {

constexpr QLatin1StringView entryName("/autostart/perchly.desktop");
constexpr const char *enabledKey = "X-GNOME-Autostart-enabled";

/// Quotes the path as one word of a desktop entry's Exec key.
QByteArray commandWord(const QString &program) {
    QByteArray word = QFile::encodeName(program);
    for (const char special : {'\\', '"', '`', '$'}) {
        word.replace(special, QByteArray("\\") + special);
    }
    word.replace('%', "%%");
    word.replace('\\', "\\\\");
    word.replace('\n', "\\n");
    word.replace('\r', "\\r");
    word.replace('\t', "\\t");
    // Some desktops look up the first word without undoing the doubled percent signs.
    return (word.contains('%') ? "env \"" : "\"") + word + '"';
}

bool isOn(const QString &path) {
    const std::unique_ptr<GDesktopAppInfo, decltype(&g_object_unref)> entry(
        g_desktop_app_info_new_from_filename(QFile::encodeName(path).constData()), &g_object_unref);
    return entry && g_desktop_app_info_get_is_hidden(entry.get()) == FALSE &&
           g_desktop_app_info_get_show_in(entry.get(), nullptr) != FALSE &&
           (g_desktop_app_info_has_key(entry.get(), enabledKey) == FALSE ||
            g_desktop_app_info_get_boolean(entry.get(), enabledKey) != FALSE);
}

} // namespace

AutostartLoginItem::AutostartLoginItem(const QString &program)
    : m_program(program) {}

QString AutostartLoginItem::runningProgram() {
    const QString program = QCoreApplication::applicationFilePath();
    const QString image = qEnvironmentVariable("APPIMAGE");
    // A terminal in another AppImage passes its own variables on.
    const QString folder = QFileInfo(qEnvironmentVariable("APPDIR")).canonicalFilePath();
    const bool isInImage = !folder.isEmpty() && program.startsWith(folder + u'/');
    return isInImage && QDir::isAbsolutePath(image) ? image : program;
}

QString AutostartLoginItem::ownEntry() const {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + entryName;
}

bool AutostartLoginItem::isEnabled() const {
    const QStringList folders =
        QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    for (const QString &folder : folders) {
        const QFileInfo entry(folder + entryName);
        if (entry.exists() || entry.isSymLink()) {
            return isOn(entry.filePath());
        }
    }
    return false;
}

LoginItem::Result AutostartLoginItem::write(const QByteArray &entry, Outcome outcome) const {
    const QString path = ownEntry();
    const QString error = wholefile::replace(path, entry, wholefile::Durability::System);
    if (!error.isEmpty()) {
        return {.message =
                    QCoreApplication::translate("LoginItem", "“%1” could not be written: %2.")
                        .arg(path, error)};
    }
    return {.outcome = outcome};
}

LoginItem::Result AutostartLoginItem::registerProgram() {
    const QFileInfo program(m_program);
    if (!program.isAbsolute() || !program.isFile() || !program.isExecutable()) {
        return {.message = QCoreApplication::translate("LoginItem",
                                                       "There is no program at “%1” to start.")
                               .arg(m_program)};
    }
    return write("[Desktop Entry]\n"
                 "Type=Application\n"
                 "Name=Perchly\n"
                 "Comment=Starts the shelf at login\n"
                 "Exec=" +
                     commandWord(m_program) +
                     "\n"
                     "Icon=org.perchly.Perchly\n"
                     "Terminal=false\n"
                     "StartupNotify=false\n"
                     "X-GNOME-Autostart-enabled=true\n",
                 Outcome::Registered);
}

LoginItem::Result AutostartLoginItem::unregisterProgram() {
    QFile entry(ownEntry());
    if ((entry.exists() || QFileInfo(entry).isSymLink()) && !entry.remove()) {
        return {.message =
                    QCoreApplication::translate("LoginItem", "“%1” could not be removed: %2.")
                        .arg(entry.fileName(), entry.errorString())};
    }
    if (isEnabled()) { // by a system-wide entry
        return write("[Desktop Entry]\nType=Application\nName=Perchly\nHidden=true\n",
                     Outcome::Unregistered);
    }
    return {.outcome = Outcome::Unregistered};
}

} // namespace perchly
