#include "Command.h"

#include <QCoreApplication>
#include <QHash>

namespace perchly::command {

namespace {

const QStringList &sections() {
    static const QStringList titles{QStringLiteral("Search"),    QStringLiteral("Files"),
                                    QStringLiteral("Clipboard"), QStringLiteral("Layouts"),
                                    QStringLiteral("Shortcuts"), QStringLiteral("Meetings"),
                                    QStringLiteral("Launch"),    QStringLiteral("Snippets"),
                                    QStringLiteral("Focus"),     QStringLiteral("Device")};
    return titles;
}

const QStringList &plain() {
    static const QStringList names{QStringLiteral("show"),    QStringLiteral("hide"),
                                   QStringLiteral("toggle"),  QStringLiteral("search"),
                                   QStringLiteral("mixer"),   QStringLiteral("settings"),
                                   QStringLiteral("capture"), QStringLiteral("quit")};
    return names;
}

/// The commands whose argument is one of a few words.
const QHash<QString, QStringList> &choices() {
    static const QHash<QString, QStringList> words{
        {QStringLiteral("workspace"), sections().join(u' ').toLower().split(u' ')},
        {QStringLiteral("player"),
         {QStringLiteral("play-pause"), QStringLiteral("next"), QStringLiteral("previous"),
          QStringLiteral("back"), QStringLiteral("forward")}},
        {QStringLiteral("focus"),
         {QStringLiteral("start"), QStringLiteral("break"), QStringLiteral("pause"),
          QStringLiteral("stop")}},
        {QStringLiteral("dock"),
         {QStringLiteral("top"), QStringLiteral("left"), QStringLiteral("right")}}};
    return words;
}

} // namespace

QString problem(const QStringList &command) {
    const QString name = command.value(0);
    const qsizetype arguments = command.size() - 1;
    if (plain().contains(name)) {
        return arguments == 0
                   ? QString()
                   : QCoreApplication::translate("Command", "“%1” takes no argument.").arg(name);
    }
    if (name == QStringLiteral("hold")) {
        return arguments > 0 ? QString()
                             : QCoreApplication::translate("Command", "“hold” needs a file.");
    }
    if (name == QStringLiteral("launch") || name == QStringLiteral("layout") ||
        name == QStringLiteral("group")) {
        return arguments == 1
                   ? QString()
                   : QCoreApplication::translate("Command", "“%1” needs one name.").arg(name);
    }
    const QStringList words = choices().value(name);
    if (words.isEmpty()) {
        return QCoreApplication::translate(
                   "Command", "There is no command “%1”. “perchly --help” lists the commands.")
            .arg(name);
    }
    const bool isOptional = arguments == 0 && name == QStringLiteral("workspace");
    const bool isKnown = arguments == 1 && words.contains(command.at(1), Qt::CaseInsensitive);
    return isOptional || isKnown
               ? QString()
               : QCoreApplication::translate("Command", "“%1” takes one of these: %2.")
                     .arg(name, words.join(u", "));
}

QString workspaceSection(const QString &name) {
    for (const QString &title : sections()) {
        if (title.compare(name, Qt::CaseInsensitive) == 0) {
            return title;
        }
    }
    return {};
}

bool onlyEnds(const QStringList &command) {
    static const QStringList names{QStringLiteral("hide"), QStringLiteral("quit"),
                                   QStringLiteral("focus pause"), QStringLiteral("focus stop")};
    return names.contains(command.join(u' '));
}

bool needsDisplay(const QStringList &command) {
    return command.value(0) == QStringLiteral("workspace") ||
           (plain().contains(command.value(0)) && !onlyEnds(command));
}

QString help() {
    return QCoreApplication::translate(
        "Command",
        "Usage: perchly [COMMAND]\n"
        "\n"
        "Perchly is a shelf at the edge of your screen. Without a command it starts, or shows the\n"
        "shelf if it is running. A command reaches the running Perchly, or starts it first.\n"
        "\n"
        "  toggle                open the shelf in keyboard mode, or close it\n"
        "  show, hide            open or close the shelf\n"
        "  search                search apps, files, clipboard and snippets\n"
        "  workspace [SECTION]   open the workspace: search, files, clipboard, layouts,\n"
        "                        shortcuts, meetings, launch, snippets, focus or device\n"
        "  mixer                 open the volume mixer\n"
        "  settings              open the settings\n"
        "  capture               capture a part of the screen\n"
        "  hold FILE...          hold files, folders and web links\n"
        "  launch ENTRY          launch an entry of the shelf, by number or name\n"
        "  layout NAME           apply a saved layout\n"
        "  group NAME            open a launch group\n"
        "  player ACTION         play-pause, next, previous, back or forward\n"
        "  focus ACTION          start, break, pause (or resume) or stop\n"
        "  dock EDGE             dock the shelf at the top, left or right\n"
        "  quit                  quit Perchly\n"
        "\n"
        "  -h, --help            show this help\n"
        "  -v, --version         show the version\n"
        "\n"
        "The exit status is 0, 1 if the command failed, or 2 if it is wrong.\n");
}

} // namespace perchly::command
