#include "CommandLine.h"

#include "Command.h"
#include "UserLanguage.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QUrl>

#include <cstdio>
#include <cstdlib>

namespace perchly {

namespace {

constexpr int wrongUse = 2;

void complain(const QString &problem) {
    std::fprintf(stderr, "perchly: %s\n", qUtf8Printable(problem));
}

CommandLine wrong(const QString &problem) {
    complain(problem);
    return {.command = {}, .status = wrongUse};
}

/// The URL of an existing file, or of a web link; empty otherwise.
QUrl urlToHold(const QString &argument) {
    const QFileInfo file(argument);
    if (file.exists()) {
        return QUrl::fromLocalFile(file.absoluteFilePath());
    }
    const QUrl url(argument);
    const bool isWeb =
        url.scheme() == QStringLiteral("http") || url.scheme() == QStringLiteral("https");
    const bool isLink = isWeb && !url.host().isEmpty();
    return isLink || QFileInfo::exists(url.toLocalFile()) ? url : QUrl();
}

/// "hold" and the URLs of the files; reports those that are missing, and then holds none.
CommandLine holding(const QStringList &arguments) {
    CommandLine line{.command = {arguments.first()}, .status = {}};
    for (const QString &argument : arguments.mid(1)) {
        const QUrl url = urlToHold(argument);
        if (url.isEmpty()) {
            loadUserLanguageToPrint();
            complain(
                QCoreApplication::translate("Command", "“%1” is not a file, folder or web link.")
                    .arg(argument));
            line.status = EXIT_FAILURE;
        } else {
            line.command.append(url.toString(QUrl::FullyEncoded));
        }
    }
    return line;
}

} // namespace

CommandLine readCommandLine(int argc, char **argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    const QCommandLineOption version(QStringList{QStringLiteral("v"), QStringLiteral("version")});
    // A session manager passes "-session ID", which the application object reads.
    const QCommandLineOption session(QStringLiteral("session"), {}, QStringLiteral("id"));
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOptions({help, version, session});
    if (!parser.parse(arguments)) {
        loadUserLanguageToPrint();
        return wrong(parser.errorText());
    }
    if (parser.isSet(help)) {
        loadUserLanguageToPrint();
        std::fputs(qUtf8Printable(command::help()), stdout);
        return {.command = {}, .status = EXIT_SUCCESS};
    }
    if (parser.isSet(version)) {
        std::puts("perchly " PERCHLY_VERSION);
        return {.command = {}, .status = EXIT_SUCCESS};
    }
    const QStringList command = parser.positionalArguments();
    if (command.isEmpty()) {
        return {};
    }
    if (!command::problem(command).isEmpty()) {
        loadUserLanguageToPrint();
        return wrong(command::problem(command));
    }
    return command.first() == QStringLiteral("hold")
               ? holding(command)
               : CommandLine{.command = command, .status = {}};
}

} // namespace perchly
