#include "AppDelegate.h"

#include "ApplicationPictures.h"
#include "Hosts.h"

#include <QCoreApplication>

namespace perchly {

AppDelegate::AppDelegate(Hosts &hosts, ShellResources resources)
    : m_hosts(hosts)
    , m_resources(std::move(resources))
    , m_fieldPasting(*hosts.pasteboard)
    , m_shelfPreferences(*hosts.preferences)
    , m_model(*hosts.clock, *hosts.preferences, *hosts.alertSound)
    , m_media(m_model, *hosts.clock, *hosts.scriptHost, *hosts.playerNotifications,
              *hosts.musicPlayer)
    , m_library(*hosts.preferences, *hosts.catalog, *hosts.openPanel)
    , m_productivity(hosts)
    , m_mixer(*hosts.audio, *hosts.clock)
    , m_hotKey(*hosts.hotKeys, *this, m_productivity)
    , m_headerView(*this) {}

AppDelegate::~AppDelegate() = default;

ShelfExtras &AppDelegate::extras() {
    if (!m_extras) {
        m_extras = std::make_unique<ShelfExtras>(m_hosts, this);
    }
    return *m_extras;
}

void AppDelegate::launch() {
    m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    m_engine.addImageProvider(QStringLiteral("applications"),
                              new ApplicationPictures(*m_hosts.applications));
    m_panel = std::make_unique<ShelfPanel>(m_engine, *m_hosts.panel);
    m_panel->load(m_resources.shelfView,
                  {{QStringLiteral("model"), QVariant::fromValue(&m_model)},
                   {QStringLiteral("preferences"), QVariant::fromValue(&m_shelfPreferences)},
                   {QStringLiteral("library"), QVariant::fromValue(&m_library)},
                   {QStringLiteral("productivity"), QVariant::fromValue(&m_productivity)},
                   {QStringLiteral("extras"), QVariant::fromValue(&extras())},
                   {QStringLiteral("shell"), QVariant::fromValue<ShellActions *>(this)},
                   {QStringLiteral("motion"), QVariant::fromValue(m_hosts.motion.get())}});
    resize();
    m_hosts.panel->orderFront();
    m_media.startMediaMonitoring();
    m_hotKey.registerChords();
    m_hosts.keys->start([this](const KeyPress &press) { return handleKey(press); });
    connect(m_hosts.pointer.get(), &PointerMonitor::moved, this, &AppDelegate::checkHover);
    // Queued: checking must not move the panel inside its own handling of the event.
    connect(m_panel.get(), &ShelfPanel::crossed, this, &AppDelegate::onPointerCrossing,
            Qt::QueuedConnection);
    m_hosts.pointer->start();
    showStatusItem();
    m_hosts.playerNotifications->start();
    m_hosts.audio->start();
    connect(m_hosts.displays.get(), &Displays::changed, this, &AppDelegate::resize);
    connect(&m_shelfPreferences, &ShelfPreferences::shelfScaleChanged, this, &AppDelegate::resize);
}

void AppDelegate::showStatusItem() {
    const auto command = [](Qt::Key key) { return QKeySequence(Qt::CTRL | key); };
    m_hosts.statusItem->show(
        m_resources.statusIcon, QStringLiteral("Perchly"),
        {{QStringLiteral("Show shelf"), [this] { showShelf(); }, {}},
         {QStringLiteral("Volume Mixer…"), [this] { showMixer(); }, {}},
         {QStringLiteral("Search…"), [this] { showSearch(); }, {}},
         {QStringLiteral("Workspace…"), [this] { showTools(); }, {}},
         {QStringLiteral("Settings…"), [this] { showSettings(); }, command(Qt::Key_Comma)},
         {QStringLiteral("Quit Perchly"), [this] { terminate(); }, command(Qt::Key_Q)}});
}

void AppDelegate::show(std::unique_ptr<AuxiliaryWindow> &window, const WindowContent &content) {
    if (!window) {
        window = std::make_unique<AuxiliaryWindow>(m_engine, content);
        window->setIcon(m_resources.statusIcon);
    }
    // The window takes the keyboard from here, so it is not given back.
    m_keyboardOpen = false;
    m_keyboardBorrowed = false;
    setExpanded(false);
    m_hosts.panel->activate(window.get());
}

void AppDelegate::showShelf() {
    setExpanded(true);
}

void AppDelegate::showTools() {
    show(m_toolsWindow,
         {.title = QStringLiteral("Perchly Workspace"),
          .size = {660, 570},
          .view = m_resources.toolsView,
          .properties = {{QStringLiteral("tools"), QVariant::fromValue(&m_productivity)},
                         {QStringLiteral("library"), QVariant::fromValue(&m_library)},
                         {QStringLiteral("model"), QVariant::fromValue(&m_model)},
                         {QStringLiteral("preferences"), QVariant::fromValue(&m_shelfPreferences)},
                         {QStringLiteral("extras"), QVariant::fromValue(&extras())}}});
}

void AppDelegate::showSettings() {
    if (!m_displayPreferences) {
        m_displayPreferences = std::make_unique<DisplayPreferences>(
            *m_hosts.preferences, *m_hosts.displays, *m_hosts.loginItem, *this);
    }
    show(m_settingsWindow,
         {.title = QStringLiteral("Perchly Settings"),
          .size = {660, 600},
          .view = m_resources.settingsView,
          .properties = {
              {QStringLiteral("library"), QVariant::fromValue(&m_library)},
              {QStringLiteral("preferences"), QVariant::fromValue(m_displayPreferences.get())}}});
}

void AppDelegate::showMixer() {
    show(m_mixerWindow, {.title = QStringLiteral("Perchly Volume Mixer"),
                         .size = {600, 480},
                         .buttons = WindowContent::Buttons::CloseMaximize,
                         .view = m_resources.mixerView,
                         .properties = {{QStringLiteral("mixer"), QVariant::fromValue(&m_mixer)}}});
}

void AppDelegate::showSearch() {
    extras().setSection(QStringLiteral("Search"));
    showTools();
}

void AppDelegate::clearScreen() {
    if (m_toolsWindow) {
        m_toolsWindow->hide();
    }
    m_keyboardOpen = false; // its window takes the keyboard when the capture is over
    m_keyboardBorrowed = false;
    setExpanded(false);
}

void AppDelegate::terminate() {
    m_media.stopMediaMonitoring();
    m_mixer.releaseAll();
    QCoreApplication::quit();
}

void AppDelegate::perform(const QString &action) {
    if (action == QLatin1StringView("show")) {
        showShelf();
    } else if (action == QLatin1StringView("search")) {
        showSearch();
    } else if (action == QLatin1StringView("workspace")) {
        showTools();
    } else if (action == QLatin1StringView("mixer")) {
        showMixer();
    } else if (action == QLatin1StringView("settings")) {
        showSettings();
    }
}

} // namespace perchly
