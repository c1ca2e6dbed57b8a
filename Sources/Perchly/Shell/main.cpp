// Sends a command to the running instance, or loads the module with the program and runs it.

#include "BackgroundStart.h"
#include "Command.h"
#include "CommandLine.h"
#include "InstanceSocket.h"
#include "Program.h"
#include "UserLanguage.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>

#include <cstdlib>

using namespace perchly;

namespace {

using namespace std::chrono_literals;

/// Loads it from the folder of the executable, or from "libexec" after installation.
void load(QLibrary &module) {
    const QString folder = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).path();
    for (const auto &place : {"/perchly-program.so", "/" PERCHLY_LIBEXEC "perchly-program.so"}) {
        module.setFileName(folder + QLatin1StringView(place));
        if (module.load()) {
            return;
        }
    }
}

} // namespace

int main(int argc, char **argv) {
    qSetMessagePattern(QStringLiteral("perchly: %{message}"));
    const CommandLine line = readCommandLine(argc, argv);
    if (line.status) {
        return *line.status;
    }
    BackgroundStart background;
    const QStringList command =
        line.command.isEmpty() ? QStringList(QStringLiteral("show")) : line.command;
    if (qEnvironmentVariable("PERCHLY_HOSTS") != QStringLiteral("null")) {
        if (const auto error = instancesocket::send(command, 2s)) {
            return background.finish(*error);
        }
    }
    if (!line.command.isEmpty()) {
        if (command::onlyEnds(command)) {
            loadUserLanguageToPrint();
            background.finish(QCoreApplication::translate("Command", "Perchly is not running."));
            return EXIT_SUCCESS;
        }
        if (const auto error = background.fork()) {
            return background.finish(*error);
        }
    }
    QLibrary module;
    load(module);
    auto *run = reinterpret_cast<ProgramRun *>(module.resolve(programRunName));
    return run ? run(argc, argv, command, background) : background.finish(module.errorString());
}
