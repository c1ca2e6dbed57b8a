#include "AppDelegate.h"

#include "ApplicationPictures.h"
#include "Hosts.h"

#include <QGuiApplication>
#include <QPointer>
#include <QtMath>

#include <algorithm>

namespace perchly {

using namespace std::chrono_literals;

AppDelegate::AppDelegate(Hosts &hosts, ShellResources resources)
    : m_hosts(hosts)
    , m_resources(std::move(resources))
    , m_fieldPasting(*hosts.pasteboard)
    , m_shelfPreferences(*hosts.preferences, *hosts.displays, *hosts.loginItem, *this)
    , m_model(*hosts.clock, *hosts.preferences, *hosts.alertSound)
    , m_media(m_model, *hosts.clock, *hosts.scriptHost, *hosts.playerNotifications,
              *hosts.musicPlayer)
    , m_library(*hosts.preferences, *hosts.catalog, *hosts.openPanel)
    , m_productivity(hosts, m_library, m_model)
    , m_mixer(*hosts.audio, *hosts.clock)
    , m_panel(m_engine, *hosts.panel)
    , m_placement(*hosts.displays, m_shelfPreferences, m_model, m_panel)
    , m_opener(hosts, m_shelfPreferences, m_model, m_placement, m_panel)
    , m_drag(m_model, m_placement, m_opener, m_panel)
    , m_hotKey(*hosts.hotKeys, *hosts.preferences, *this, m_productivity)
    , m_keys(*hosts.panel, m_model, m_library, m_opener, m_hotKey, *this) {}

AppDelegate::~AppDelegate() = default;

ShelfExtras &AppDelegate::extras() {
    if (!m_extras) {
        m_extras = std::make_unique<ShelfExtras>(m_hosts, m_library, m_productivity, *this);
        const Capture *capture = m_extras->capture();
        connect(capture, &Capture::activeChanged, this,
                [this, capture] { m_hosts.panel->setCapturing(capture->active()); });
    }
    return *m_extras;
}

void AppDelegate::launch() {
    m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    m_engine.addImageProvider(QStringLiteral("applications"),
                              new ApplicationPictures(*m_hosts.applications));
    m_panel.load(m_resources.shelfView,
                 {{QStringLiteral("model"), QVariant::fromValue(&m_model)},
                  {QStringLiteral("preferences"), QVariant::fromValue(&m_shelfPreferences)},
                  {QStringLiteral("library"), QVariant::fromValue(&m_library)},
                  {QStringLiteral("productivity"), QVariant::fromValue(&m_productivity)},
                  {QStringLiteral("extras"), QVariant::fromValue(&extras())},
                  {QStringLiteral("shell"), QVariant::fromValue<ShellActions *>(this)},
                  {QStringLiteral("motion"), QVariant::fromValue(m_hosts.motion.get())},
                  {QStringLiteral("appearance"), QVariant::fromValue(m_hosts.appearance.get())}});
    m_placement.update();
    m_hosts.panel->orderFront();
    m_media.startMediaMonitoring();
    m_hotKey.registerChords();
    m_hosts.keys->start([this](const KeyPress &press) { return m_keys.handle(press); });
    followPointer();
    m_hosts.statusItem->show(m_resources.statusIcon, QStringLiteral("Perchly"), menu(),
                             [this] { toggleKeyboardOpen(); });
    m_announcements = std::make_unique<Announcements>(
        m_hosts,
        Announcements::Sources{.preferences = m_shelfPreferences,
                               .model = m_model,
                               .productivity = m_productivity,
                               .extras = extras()},
        *this, [this] {
            return m_toolsWindow && m_toolsWindow->isVisible() && m_toolsWindow->isExposed();
        });
    m_hosts.playerNotifications->start();
    m_hosts.audio->start();
    connect(m_hosts.displays.get(), &Displays::changed, this, &AppDelegate::resize);
    connect(&m_shelfPreferences, &ShelfPreferences::scaleChanged, this, &AppDelegate::resize);
}

void AppDelegate::followPointer() {
    connect(m_hosts.pointer.get(), &PointerMonitor::moved, this, &AppDelegate::pointerAt);
    // Queued, since the panel must not be moved while it handles the event.
    connect(&m_panel, &ShelfPanel::crossed, this, &AppDelegate::checkPointer, Qt::QueuedConnection);
    // Queued, since a failed command sets its error next.
    connect(&m_model, &ShelfModel::controllingChanged, this, &AppDelegate::checkPointer,
            Qt::QueuedConnection);
    connect(&m_model, &ShelfModel::expandedChanged, this, [this] {
        if (!m_model.expanded()) {
            m_hosts.contextMenu->close();
        }
    });
    connect(&m_model, &ShelfModel::choosingWidgetChanged, this, &AppDelegate::checkPointer);
    connect(&m_model, &ShelfModel::typingChanged, this, &AppDelegate::checkPointer,
            Qt::QueuedConnection);
    connect(
        &m_panel, &ShelfPanel::draggedOver, this, [this] { m_opener.draggedOver(); },
        Qt::QueuedConnection);
    connect(m_hosts.panel.get(), &PanelHost::keyboardLost, this,
            [this] { m_opener.keyboardLost(); });
    connect(m_hosts.panel.get(), &PanelHost::keyboardRefused, this,
            [this] { m_opener.keyboardRefused(); });
    m_hosts.pointer->start();
}

/// The closed shelf opens only when the pointer moves, not when it appears under a resting pointer.
void AppDelegate::checkPointer() {
    if (m_model.expanded()) {
        pointerAt(m_hosts.pointer->position());
    }
}

void AppDelegate::pointerAt(ScreenPoint pointer) {
    if (!m_extras || !m_extras->capture()->active()) {
        m_opener.pointerAt(pointer);
    }
}

/// The position of the pointer event being handled: the pointer itself may have moved on.
ScreenPoint AppDelegate::handlePosition() const {
    const auto event = m_panel.eventPosition();
    return event ? *event : m_hosts.pointer->position();
}

QList<StatusMenuEntry> AppDelegate::menu() {
    const auto command = [](Qt::Key key) { return QKeySequence(Qt::CTRL | key); };
    return {{tr("Show shelf"), [this] { showShelf(); }, {}},
            {tr("Volume Mixer…"), [this] { showMixer(); }, {}},
            {tr("Search…"), [this] { showSearch(); }, {}},
            {tr("Workspace…"), [this] { showTools(); }, {}},
            {tr("Settings…"), [this] { showSettings(); }, command(Qt::Key_Comma)},
            {tr("Quit Perchly"), [this] { terminate(); }, command(Qt::Key_Q)}};
}

void AppDelegate::showMenu(QPointF position, bool byKey) {
    openMenu(menu(), position, byKey);
}

void AppDelegate::showEntryMenu(const QString &id, QObject *tile, QPointF position, bool byKey) {
    const QList<ShelfItem> &items = m_library.items();
    const auto item = std::ranges::find(items, id, &ShelfItem::id);
    if (item == items.cend()) {
        return;
    }
    const auto press = [tile = QPointer(tile)] {
        if (tile) {
            QMetaObject::invokeMethod(tile, "press");
        }
    };
    const auto hide = [this, id] { m_library.toggle(id, ShelfLibrary::Flag::Visible); };
    QList<StatusMenuEntry> entries{{tr("Open"), press, {}}, {tr("Hide"), hide, {}}};
    if (item->removable()) {
        entries.append({tr("Remove"), [this, id] { m_library.remove(id); }, {}});
    }
    entries.append(
        {tr("Settings…"), [this] { showSettings(); }, QKeySequence(Qt::CTRL | Qt::Key_Comma)});
    openMenu(entries, position, byKey);
}

void AppDelegate::openMenu(const QList<StatusMenuEntry> &entries, QPointF position, bool byKey) {
    const auto opener = byKey ? ContextMenu::Opener::Keys : ContextMenu::Opener::Pointer;
    m_hosts.contextMenu->close();
    m_model.setChoosingWidget(true);
    m_hosts.panel->setMenuOpen(true);
    m_hosts.contextMenu->open(entries, position.toPoint(), opener, [this] {
        m_model.setChoosingWidget(false);
        m_hosts.panel->setMenuOpen(false);
    });
}

void AppDelegate::show(std::unique_ptr<AuxiliaryWindow> &window, const WindowContent &content) {
    if (!window) {
        QGuiApplication::setWindowIcon(m_resources.statusIcon); // of dialogs, too
        window = std::make_unique<AuxiliaryWindow>(m_engine, content);
    }
    window->appearOn(m_panel.screen(), qCeil(m_placement.coveredHeight()));
    m_hotKey.retry();
    m_opener.closeForWindow();
    m_hosts.panel->activate(window.get());
}

void AppDelegate::showTools() {
    show(m_toolsWindow,
         {.title = tr("Perchly Workspace"),
          .size = {660, 570},
          .view = m_resources.toolsView,
          .properties = {{QStringLiteral("tools"), QVariant::fromValue(&m_productivity)},
                         {QStringLiteral("library"), QVariant::fromValue(&m_library)},
                         {QStringLiteral("model"), QVariant::fromValue(&m_model)},
                         {QStringLiteral("preferences"), QVariant::fromValue(&m_shelfPreferences)},
                         {QStringLiteral("extras"), QVariant::fromValue(&extras())}}});
}

void AppDelegate::showSettings() {
    show(m_settingsWindow,
         {.title = tr("Perchly Settings"),
          .size = {660, 600},
          .view = m_resources.settingsView,
          .properties = {
              {QStringLiteral("hotKey"), QVariant::fromValue(&m_hotKey)},
              {QStringLiteral("library"), QVariant::fromValue(&m_library)},
              {QStringLiteral("preferences"), QVariant::fromValue(&m_shelfPreferences)}}});
}

void AppDelegate::showMixer() {
    show(m_mixerWindow, {.title = tr("Perchly Volume Mixer"),
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
    m_opener.closeForWindow();
    m_hosts.panel->giveKeyboardBack(); // the capture needs it
}

void AppDelegate::launch(const QString &id, const Answer &answer) {
    const QList<ShelfItem> &items = m_library.items();
    const auto item = std::ranges::find(items, id, &ShelfItem::id);
    if (item == items.cend()) {
        return;
    }
    if (item->shortcutName) {
        m_productivity.shortcuts()->run(*item->shortcutName);
        closeAfterLaunch();
        answer({});
    } else if (item->path) {
        // The shelf stays open for an error, which comes at once as a rule.
        m_launched = m_hosts.clock->after(300ms, [this] { closeAfterLaunch(); });
        m_hosts.applications->launch(
            *item->path, [guard = QPointer(this), answer, name = item->name](const QString &error) {
                QString message;
                if (guard && error.isEmpty()) {
                    guard->closeAfterLaunch();
                } else if (guard) {
                    message = tr("Could not open %1. %2").arg(name, error);
                    guard->m_launched.reset();
                    guard->m_model.setControlError(message, tr("Launch failed"));
                }
                answer(message);
            });
    } else {
        answer(tr("“%1” is a widget, which cannot be launched.").arg(item->shownName()));
    }
}

void AppDelegate::closeAfterLaunch() {
    m_launched.reset();
    if (m_opener.isKeyboardOpen()) {
        m_opener.setKeyboardOpen(false);
    }
}

void AppDelegate::terminate() {
    m_media.stopMediaMonitoring();
    m_mixer.releaseAll();
    QCoreApplication::quit();
}

} // namespace perchly
