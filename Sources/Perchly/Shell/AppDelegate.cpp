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
    , m_hotKey(*hosts.hotKeys, *this, m_productivity)
    , m_headerView(*this) {}

AppDelegate::~AppDelegate() = default;

ShelfExtras &AppDelegate::extras() {
    if (!m_extras) {
        m_extras = std::make_unique<ShelfExtras>();
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
    m_hosts.pointer->start();
    showStatusItem();
    m_hosts.playerNotifications->start();
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

void AppDelegate::show(std::unique_ptr<AuxiliaryWindow> &window, const QString &title,
                       const QSize &size, AuxiliaryWindow::Buttons buttons) {
    if (!window) {
        window = std::make_unique<AuxiliaryWindow>(m_engine, title, size, buttons, QUrl(),
                                                   QVariantMap());
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
    show(m_toolsWindow, QStringLiteral("Perchly Workspace"), {660, 570},
         AuxiliaryWindow::Buttons::CloseMinimizeMaximize);
}

void AppDelegate::showSettings() {
    show(m_settingsWindow, QStringLiteral("Perchly Settings"), {660, 600},
         AuxiliaryWindow::Buttons::CloseMinimizeMaximize);
}

void AppDelegate::showMixer() {
    show(m_mixerWindow, QStringLiteral("Perchly Volume Mixer"), {600, 480},
         AuxiliaryWindow::Buttons::CloseMaximize);
}

void AppDelegate::showSearch() {
    extras().setSection(QStringLiteral("Search"));
    showTools();
}

void AppDelegate::terminate() {
    m_media.stopMediaMonitoring();
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
