#include "Program.h"

#include "AccessibleItem.h"
#include "AppDelegate.h"
#include "BackgroundStart.h"
#include "EndlessFolders.h"
#include "Hosts.h"
#include "LinuxHosts.h"
#include "SymbolIcon.h"
#include "TerminationSignals.h"
#include "Theme.h"
#include "UserLanguage.h"

#include <QApplication>
#include <QQuickWindow>
#include <QTimer>

#include <csignal>
#include <cstdlib>
#include <malloc.h>
#include <optional>
#include <unistd.h>

using namespace perchly;

namespace {
constexpr unsigned maxQuitSeconds = 5;
}

extern "C" Q_DECL_EXPORT ProgramRun perchlyRun;

int perchlyRun(int &argc, char **argv, const QStringList &command, BackgroundStart &background) {
    // Return freed memory of copies and pictures, which take megabytes each, to the system.
    mallopt(M_MMAP_THRESHOLD, 1 << 20);
    hideEndlessApplicationFolders();
    std::optional<UnansweringBusHider> busHider(std::in_place);
    std::optional<WindowSystemChoice> windowSystem(std::in_place);
    if (background.isBackground() && !windowSystem->hasDisplay()) {
        loadUserLanguageToPrint();
        return background.finish(
            QCoreApplication::translate("Command", "Perchly needs a display to start."));
    }
    // The software renderer needs half the time to the first frame and a third of the memory.
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND")) {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    }

    QApplication application(argc, argv);
    windowSystem.reset();
    const auto bus = makeSessionBus(busHider->hasAnswered());
    busHider.reset();
    QApplication::setApplicationName(QStringLiteral("perchly"));
    QApplication::setDesktopFileName(QStringLiteral("org.perchly.Perchly"));
    QApplication::setQuitOnLastWindowClosed(false);
    AccessibleItem::install();
    QApplication::setPalette(Theme::palette());
    QFont menuFont(Theme::family());
    menuFont.setPixelSize(13);
    QApplication::setFont(menuFont, "QMenu");

    const auto instance = makeSingleInstance(bus);
    if (const auto error = instance->claim(command)) {
        return background.finish(*error);
    }

    loadUserLanguage();
    Hosts hosts = makeHosts(bus);
    AppDelegate delegate(
        hosts,
        {.statusIcon = platedSymbolIcon(QStringLiteral("square.stack.3d.up")),
         .shelfView = QUrl(QStringLiteral("qrc:/qt/qml/Perchly/Shelf/ShelfView.qml")),
         .settingsView = QUrl(QStringLiteral("qrc:/qt/qml/Perchly/Settings/ShelfSettings.qml")),
         .toolsView = QUrl(QStringLiteral("qrc:/qt/qml/Perchly/Productivity/ProductivityView.qml")),
         .mixerView = QUrl(QStringLiteral("qrc:/qt/qml/Perchly/VolumeMixer/VolumeMixerView.qml"))});
    instance->setPerformer(
        [&delegate](const QStringList &received, const SingleInstance::Answer &answer) {
            delegate.perform(received, answer);
        });
    const TerminationSignals signals;
    QObject::connect(&signals, &TerminationSignals::requested, &delegate, &AppDelegate::terminate);
    delegate.launch();
    if (background.isBackground()) {
        QTimer::singleShot(0, &delegate, [&] {
            delegate.perform(command, [&](const QString &error) { background.finish(error); });
        });
    }
    Capture::removeOld(*hosts.preferences);
    const int status = QApplication::exec();
    // Everything is already stored. Threads that wait for a dead disk must not keep the process,
    // and with it the name that the next instance needs.
    std::signal(SIGALRM, [](int) { _exit(EXIT_SUCCESS); });
    alarm(maxQuitSeconds);
    return status;
}
