#include "LinuxHosts.h"

#include "ActivationTokens.h"
#include "AutostartLoginItem.h"
#include "BusNotifications.h"
#include "BusPlayerNotifications.h"
#include "CalendarQuestion.h"
#include "CanberraAlertSound.h"
#include "Companion.h"
#include "CompanionCalendarStore.h"
#include "DefaultMusicPlayer.h"
#include "DesktopAppearance.h"
#include "DesktopCatalog.h"
#include "FolderShortcutsTool.h"
#include "GioApplications.h"
#include "GioFilePictures.h"
#include "GioFileServices.h"
#include "JsonPreferences.h"
#include "KernelPower.h"
#include "LockedInstance.h"
#include "NullHosts.h"
#include "OwnEnvironment.h"
#include "PipeWireAudioSystem.h"
#include "PortalHotKeys.h"
#include "PortalMotion.h"
#include "PortalScreenCapture.h"
#include "ProcessPictureReader.h"
#include "ProcessQuickLook.h"
#include "ProcessScreenCapture.h"
#include "ProcessScriptHost.h"
#include "QtClock.h"
#include "QtContextMenu.h"
#include "QtKeyMonitor.h"
#include "QtOpenPanel.h"
#include "RunningApplications.h"
#include "SessionBus.h"
#include "StartupSequence.h"
#include "TrayStatusItem.h"
#include "WaylandContextMenu.h"
#include "WaylandDisplays.h"
#include "WaylandOffer.h"
#include "WaylandPanelHost.h"
#include "WaylandPasteboard.h"
#include "WaylandPointerMonitor.h"
#include "X11Displays.h"
#include "X11HotKeys.h"
#include "X11PanelHost.h"
#include "X11Pasteboard.h"
#include "X11PointerMonitor.h"
#include "XWaylandPointerMonitor.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QWindow>

#include <cstdio>
#include <utility>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr const char *bufferName = "QT_WAYLAND_CLIENT_BUFFER_INTEGRATION";
constexpr const char *busVariable = "DBUS_SESSION_BUS_ADDRESS";
constexpr const char *drawingDelay = "QT_QPA_UPDATE_IDLE_TIME";
constexpr const char *platformName = "QT_QPA_PLATFORM";

bool wantsNullHosts() {
    return qEnvironmentVariable("PERCHLY_HOSTS") == QStringLiteral("null");
}

bool isWayland() {
    return QGuiApplication::platformName() == QStringLiteral("wayland");
}

void tellOnce(const char *text) {
    static QList<const char *> told;
    if (!told.contains(text)) {
        told.append(text);
        std::fprintf(stderr, "perchly: %s\n", text);
    }
}

template <class Host>
std::unique_ptr<Host> companion(const char *name, const char *ifMissing) {
    const QString program = findCompanion(QString::fromLatin1(name));
    if (program.isEmpty()) {
        tellOnce(ifMissing);
    }
    return std::make_unique<Host>(program);
}

std::unique_ptr<CalendarStore> calendarStore() {
    const QString program = findCompanion(QStringLiteral("perchly-calendarreader"));
    if (program.isEmpty()) {
        tellOnce("perchly-calendarreader is not installed: meetings are missing");
    }
    const bool canAsk = QGuiApplication::platformName() != QStringLiteral("offscreen");
    return std::make_unique<CompanionCalendarStore>(program, CalendarConsent::defaultPath(),
                                                    canAsk ? askForCalendars : nullptr);
}

std::unique_ptr<AudioSystem> audioSystem() {
    const QString keeper = findCompanion(QStringLiteral("perchly-routekeeper"));
    if (keeper.isEmpty()) {
        tellOnce("perchly-routekeeper is not installed: an application that was moved to an output "
                 "goes to the default one if Perchly is killed while it sets its volume");
    }
    return std::make_unique<PipeWireAudioSystem>(findRunningApplication, keeper);
}

StartNotices startNotices(const std::shared_ptr<WaylandConnection> &connection) {
    if (!connection) {
        return {.begin = startupsequence::begin, .withdraw = startupsequence::withdraw};
    }
    const auto tokens = std::make_shared<ActivationTokens>(connection);
    return {.askToken = [tokens] { return tokens->ask(); }};
}

void addDesktop(Hosts &hosts, const std::shared_ptr<SessionBus> &bus,
                const std::shared_ptr<WaylandConnection> &connection) {
    if (!bus->isConnected()) {
        tellOnce("no session bus: status icon, portals and control by other programs are missing");
    }
    hosts.preferences = std::make_unique<JsonPreferences>(JsonPreferences::defaultPath());
    hosts.statusItem = std::make_unique<TrayStatusItem>(bus);
    const StartNotices notices = startNotices(connection);
    hosts.applications = std::make_unique<GioApplications>(notices);
    hosts.catalog = std::make_unique<DesktopCatalog>();
    hosts.loginItem = std::make_unique<AutostartLoginItem>(AutostartLoginItem::runningProgram());
    hosts.motion = std::make_unique<PortalMotion>(bus);
    hosts.notifications = std::make_unique<BusNotifications>(bus);
    hosts.alertSound = std::make_unique<CanberraAlertSound>();
    hosts.scriptHost = companion<ProcessScriptHost>(
        "perchly-scripthost", "perchly-scripthost is not installed: what players play is missing");
    hosts.shortcuts = std::make_unique<FolderShortcutsTool>();
    hosts.pictures = companion<ProcessPictureReader>(
        "perchly-picturereader", "perchly-picturereader is not installed: pictures of files cannot "
                                 "be copied");
    hosts.filePictures = std::make_unique<GioFilePictures>(*hosts.applications, *hosts.pictures);
    hosts.fileServices = std::make_unique<GioFileServices>(notices);
    hosts.calendars = calendarStore();
    hosts.power = std::make_unique<KernelPower>();
    hosts.playerNotifications = std::make_unique<BusPlayerNotifications>(bus);
    hosts.musicPlayer = std::make_unique<DefaultMusicPlayer>(*hosts.applications);
    hosts.audio = audioSystem();
}

void addWindows(Hosts &hosts, const std::shared_ptr<SessionBus> &bus) {
    hosts.keys = std::make_unique<QtKeyMonitor>();
    hosts.appearance = std::make_unique<DesktopAppearance>(bus);
    hosts.openPanel = std::make_unique<QtOpenPanel>(bus);
    if (isXWayland() || (isWayland() && !compositorOffers(screenCopyInterface, 1s))) {
        hosts.screenCapture = std::make_unique<PortalScreenCapture>(bus);
    } else {
        hosts.screenCapture = companion<ProcessScreenCapture>(
            "perchly-screencapture",
            "perchly-screencapture is not installed: captures are missing");
    }
    hosts.quickLook = companion<ProcessQuickLook>(
        "perchly-preview", "perchly-preview is not installed: previews are missing");
}

std::unique_ptr<HotKeys> portalHotKeys(const std::shared_ptr<SessionBus> &bus) {
    return std::make_unique<PortalHotKeys>(
        std::make_shared<SessionBus>(QStringLiteral("perchly-keys"), bus->isConnected()),
        QStringList{QCoreApplication::translate("HotKeys", "Toggle shelf"),
                    QCoreApplication::translate("HotKeys", "Search")});
}

void addX11(Hosts &hosts, const std::shared_ptr<SessionBus> &bus) {
    hosts.displays = std::make_unique<X11Displays>();
    hosts.panel = std::make_unique<X11PanelHost>();
    hosts.contextMenu = std::make_unique<QtContextMenu>();
    hosts.pasteboard = std::make_unique<X11Pasteboard>();
    if (isXWayland()) { // the X server sees input to X programs only
        hosts.pointer = std::make_unique<XWaylandPointerMonitor>();
        hosts.hotKeys = portalHotKeys(bus);
    } else {
        hosts.pointer = std::make_unique<X11PointerMonitor>();
        hosts.hotKeys = std::make_unique<X11HotKeys>();
    }
}

void addWayland(Hosts &hosts, const std::shared_ptr<SessionBus> &bus,
                const std::shared_ptr<WaylandConnection> &connection) {
    auto displays = std::make_unique<WaylandDisplays>(connection);
    auto panel = std::make_unique<WaylandPanelHost>(connection, *displays);
    hosts.displays = std::move(displays);
    hosts.contextMenu = std::make_unique<WaylandContextMenu>(*panel);
    hosts.pointer = std::make_unique<WaylandPointerMonitor>(*panel);
    hosts.panel = std::move(panel);
    hosts.hotKeys = portalHotKeys(bus);
    hosts.pasteboard = std::make_unique<WaylandPasteboard>();
}

void addWindowSystem(Hosts &hosts, const std::shared_ptr<SessionBus> &bus,
                     const std::shared_ptr<WaylandConnection> &connection) {
    const QString platform = QGuiApplication::platformName();
    if (platform == QStringLiteral("xcb")) {
        addX11(hosts, bus);
    } else if (connection) {
        addWayland(hosts, bus, connection);
    } else {
        tellOnce("no display: the shelf's place, the pointer and the hot keys are missing");
        return;
    }
    addWindows(hosts, bus);
}

} // namespace

UnansweringBusHider::UnansweringBusHider() {
    if (!SessionBus::answers(1s)) {
        m_address = qgetenv(busVariable);
        qputenv(busVariable, "disabled:");
    }
}

UnansweringBusHider::~UnansweringBusHider() {
    if (m_address) {
        static_cast<void>(QDBusConnection::sessionBus()); // Qt looks for the bus once, now
        if (m_address->isNull()) {
            qunsetenv(busVariable);
        } else {
            qputenv(busVariable, *m_address);
        }
    }
}

WindowSystemChoice::WindowSystemChoice() {
    // By default Qt draws a change five milliseconds late.
    if (!qEnvironmentVariableIsSet(drawingDelay)) {
        set(drawingDelay, "0");
    }
    const QByteArray platform = qgetenv(platformName);
    const QByteArray system = qgetenv("PERCHLY_WINDOW_SYSTEM");
    if (!platform.isEmpty() && !platform.startsWith("wayland") && system.isEmpty()) {
        return;
    }
    if (system != "x11" && compositorOffers(layerShellInterface, 1s)) {
        set(platformName, "wayland");
        // Otherwise Qt takes all windows to be at the corner of their display.
        set("QT_WAYLAND_DISABLE_FIXED_POSITIONS", "1");
        qputenv(bareSurfaces, "1");
        chooseWaylandBuffers();
    } else {
        m_connection = system == "wayland" ? nullptr : connectWithTimeout();
        m_hasDisplay = m_connection != nullptr;
        set(platformName, m_hasDisplay ? "xcb" : "offscreen");
    }
}

/// Without OpenGL, Qt need not load drivers, which take 50 MB. It warns about that.
void WindowSystemChoice::chooseWaylandBuffers() {
    if (!qEnvironmentVariableIsSet(bufferName) && qgetenv("QT_QUICK_BACKEND") != "rhi") {
        set(bufferName, "none");
        QLoggingCategory::setFilterRules(QStringLiteral("qt.qpa.wayland.warning=false"));
    }
}

void WindowSystemChoice::set(const char *variable, const char *value) {
    m_previous.append({variable, qgetenv(variable)});
    qputenv(variable, value);
}

WindowSystemChoice::~WindowSystemChoice() {
    QWindow window; // Qt reads the variables at the first window and update request
    window.setFlag(Qt::BypassWindowManagerHint);
    window.create();
    window.requestUpdate();
    if (isWayland()) {
        WaylandConnection::chooseBuffers();
    }
    for (const auto &[variable, value] : std::as_const(m_previous)) {
        if (value.isNull()) {
            qunsetenv(variable);
        } else {
            qputenv(variable, value);
        }
    }
    QLoggingCategory::setFilterRules({});
}

std::shared_ptr<SessionBus> makeSessionBus(bool hasAnswered) {
    return wantsNullHosts() ? nullptr
                            : std::make_shared<SessionBus>(QStringLiteral("perchly"), hasAnswered);
}

Hosts makeHosts(const std::shared_ptr<SessionBus> &bus) {
    Hosts hosts = nullHosts();
    hosts.clock = std::make_unique<QtClock>();
    if (!wantsNullHosts()) {
        const auto connection = isWayland() ? std::make_shared<WaylandConnection>() : nullptr;
        addDesktop(hosts, bus, connection);
        addWindowSystem(hosts, bus, connection);
    }
    return hosts;
}

std::unique_ptr<SingleInstance> makeSingleInstance(const std::shared_ptr<SessionBus> &bus) {
    if (wantsNullHosts()) {
        return nullSingleInstance();
    }
    return std::make_unique<LockedInstance>(bus);
}

} // namespace perchly
