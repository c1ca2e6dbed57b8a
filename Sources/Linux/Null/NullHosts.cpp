#include "NullHosts.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMap>
#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <QWindow>

#include <cerrno>

namespace perchly {

namespace {

/// Calls a completion with the value from the event loop, unless destroyed before.
class Answer : public ScheduledTask {
public:
    template <class Completion, class Value>
    Answer(Completion completion, const Value &value) {
        m_timer.setSingleShot(true);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer,
                         [completion = std::move(completion), value] {
                             const auto action = completion; // it may destroy this task
                             action(value);
                         });
        m_timer.start(0);
    }

private:
    QTimer m_timer;
};

template <class Completion, class Value>
void answerLater(Completion completion, const Value &value) {
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [completion = std::move(completion), value] { completion(value); }, Qt::QueuedConnection);
}

/// Kept in memory only.
class NullPreferences : public Preferences {
public:
    std::optional<PreferenceValue> value(const QString &key) const override {
        const auto found = m_values.constFind(key);
        return found == m_values.cend() ? std::nullopt : std::optional(*found);
    }
    bool isComplete() const override { return false; }
    void removeValue(const QString &key) override {
        if (m_values.remove(key) > 0) {
            Q_EMIT changed(key);
        }
    }

private:
    void store(const PreferenceEntries &entries) override {
        for (const auto &[key, value] : entries) {
            m_values.insert(key, value);
        }
        for (const auto &[key, value] : entries) {
            Q_EMIT changed(key);
        }
    }

    QMap<QString, PreferenceValue> m_values;
};

class NullDisplays : public Displays {
public:
    QList<Display> list() const override { return {}; }
};

class NullPointerMonitor : public PointerMonitor {
public:
    void start() override {}
    ScreenPoint position() const override { return {}; }
    bool isButtonHeld() const override { return false; }
    void watch(Watch) override {}
};

class NullKeyMonitor : public KeyMonitor {
public:
    void start(Handler) override {}
};

class NullHotKeys : public HotKeys {
public:
    bool registerChord(int, QKeyCombination) override { return false; }
    void releaseChord(int) override {}
    void setKeyboardGrabbed(bool) override {}
};

/// The panel as a plain Qt window: it has its size and is shown, but the window system decides its
/// position and focus.
class NullPanelHost : public PanelHost {
public:
    void attach(QWindow *panel) override { m_panel = panel; }
    void place(const ScreenRect &frame, const QMarginsF &margins) override {
        if (m_panel) {
            m_panel->resize(qRound(frame.width + margins.left() + margins.right()),
                            qRound(frame.height + margins.top() + margins.bottom()));
        }
    }
    void orderFront() override {
        if (m_panel) {
            m_panel->show();
        }
    }
    void setShape(const QRegion &) override {}
    void setBlur(const QRegion &) override {}
    void setMenuOpen(bool) override {}
    void takeKeyboard() override {}
    void giveKeyboardBack() override {}
    bool hasKeyboard() const override { return false; }
    void activate(QWindow *window) override {
        window->show();
        window->requestActivate();
    }
    bool isComposited() const override { return false; }
    ScreenPoint toScreen(QPointF point) const override { return {point.x(), -point.y()}; }
    void markPlace(const ScreenRect &) override {}

private:
    QPointer<QWindow> m_panel;
};

class NullStatusItem : public StatusItem {
public:
    void show(const QIcon &, const QString &, const QList<StatusMenuEntry> &,
              std::function<void()>) override {}
};

class NullApplications : public Applications {
public:
    void launch(const QString &path, Completion completion) override {
        open(path, std::move(completion));
    }
    void open(const QString &path, Completion completion) override {
        openUrl(QUrl::fromLocalFile(path), std::move(completion));
    }
    QImage icon(const QString &, int, const QString &) override { return {}; }
    QImage themeIcon(const QStringList &, int) override { return {}; }
    void openUrl(const QUrl &url, Completion completion) override {
        if (completion) {
            answerLater(std::move(completion),
                        QCoreApplication::translate("NullHosts", "Nothing here can open “%1”.")
                            .arg(url.toDisplayString(QUrl::PreferLocalFile)));
        }
    }
};

class NullApplicationCatalog : public ApplicationCatalog {
public:
    void find(Completion completion) override { describe({}, std::move(completion)); }
    void describe(const QStringList &paths, Completion completion) override {
        QList<FoundApplication> applications;
        for (const QString &path : paths) {
            applications.append({path, QFileInfo(path).completeBaseName()});
        }
        QMetaObject::invokeMethod(
            this, [completion = std::move(completion), applications] { completion(applications); },
            Qt::QueuedConnection);
    }
    QString startFolder() const override { return {}; }
};

class NullOpenPanel : public OpenPanel {
public:
    Task ask(const Request &, Completion completion) override {
        return std::make_unique<Answer>(std::move(completion), QList<QUrl>());
    }
};

class NullLoginItem : public LoginItem {
public:
    bool isEnabled() const override { return false; }
    Result registerProgram() override {
        return {.message = QCoreApplication::translate("NullHosts",
                                                       "Nothing here starts programs at login.")};
    }
    Result unregisterProgram() override { return {.outcome = Outcome::Unregistered}; }
};

class NullMotion : public Motion {
public:
    bool isReduced() const override { return false; }
};

class NullAppearance : public Appearance {
public:
    bool isHighContrast() const override { return false; }
    QString iconTheme() const override { return {}; }
};

class NullAlertSound : public AlertSound {
public:
    void play() override {}
};

class NullScriptHost : public ScriptHost {
public:
    bool isRunnable() const override { return false; }
    Task run(const QStringList &, std::optional<std::chrono::milliseconds>,
             Completion completion) override {
        return std::make_unique<Answer>(std::move(completion), std::nullopt);
    }
};

class NullPlayerNotifications : public PlayerNotifications {
public:
    void start() override {}
    PlayerPresence presence() const override { return PlayerPresence::Unknown; }
};

class NullMusicPlayer : public MusicPlayer {
public:
    void open(Completion completion) override {
        answerLater(std::move(completion), QCoreApplication::translate(
                                               "NullHosts", "There is no music application here."));
    }
};

/// Reports no copies and discards writes.
class NullPasteboard : public Pasteboard {
public:
    qint64 changeCount() const override { return m_count; }
    Task read(const PasteboardRequest &, Completion completion) override {
        return std::make_unique<Answer>(std::move(completion), PasteboardContent());
    }
    void write(const QString &) override { ++m_count; }
    void writeImage(const QByteArray &) override { ++m_count; }
    void writeItems(const QList<QUrl> &) override { ++m_count; }

private:
    qint64 m_count = 0;
};

class NullPictureReader : public PictureReader {
public:
    Task readAsPng(const QString &, int, Completion completion) override {
        return std::make_unique<Answer>(std::move(completion), QByteArray());
    }
};

class NullFilePictures : public FilePictures {
public:
    Task read(const QString &, int, Completion completion) override {
        return std::make_unique<Answer>(std::move(completion), QImage());
    }
};

class NullAudioSystem : public AudioSystem {
public:
    void start() override {}
    bool canRouteProcesses() const override { return false; }
    AudioObject defaultOutput() const override { return 0; }
    std::optional<QList<AudioProcess>> processes() const override { return std::nullopt; }
    std::optional<RunningApplication> application(AudioObject) const override {
        return std::nullopt;
    }
    std::unique_ptr<AudioRoute> route(AudioObject, std::shared_ptr<AudioRingBuffer>,
                                      QString &error) override {
        error = QCoreApplication::translate("NullHosts", "There is no audio system.");
        return nullptr;
    }
};

/// Lists no shortcuts and fails every run.
class NullShortcutsTool : public ShortcutsTool {
public:
    Task execute(const QStringList &, Completion completion) override {
        return std::make_unique<Answer>(std::move(completion), Result());
    }
    QString resume(std::function<void()>) override { return {}; }
    void stopRuns() override {}
    QString folder() const override { return {}; }
    void prepareFolder(FolderCompletion completion) override {
        answerLater(
            std::move(completion),
            QCoreApplication::translate("NullHosts", "There is no folder for shortcuts here."));
    }
};

class NullFileServices : public FileServices {
public:
    void reveal(const QUrl &, Completion completion) override {
        answerLater(std::move(completion),
                    QCoreApplication::translate("NullHosts", "There is no file manager here."));
    }
    void findShareTargets(const QUrl &, TargetsCompletion completion) override {
        answerLater(std::move(completion), QList<ShareTarget>());
    }
    void share(const QUrl &, const QString &, Completion completion) override {
        answerLater(
            std::move(completion),
            QCoreApplication::translate("NullHosts", "There is nothing to share with here."));
    }
};

class NullCalendarStore : public CalendarStore {
public:
    CalendarAccess access() const override { return CalendarAccess::NotAsked; }
    Task requestAccess(AccessCompletion completion) override {
        const CalendarStore::Answer answer{
            .error = QCoreApplication::translate("NullHosts", "There are no calendars here.")};
        return std::make_unique<perchly::Answer>(std::move(completion), answer);
    }
    Task events(Clock::TimePoint, Clock::TimePoint, EventsCompletion completion) override {
        return std::make_unique<perchly::Answer>(std::move(completion), QList<CalendarEvent>());
    }
    void expectChange() override {}
};

class NullContextMenu : public ContextMenu {
public:
    void open(const QList<StatusMenuEntry> &, QPoint, Opener,
              std::function<void()> closed) override {
        closed();
    }
    void close() override {}
};

class NullPowerSources : public PowerSources {
public:
    void read(Completion completion) override { answerLater(std::move(completion), Reading()); }
};

class NullScreenCapture : public ScreenCapture {
public:
    Task captureRegion(const QString &, Completion completion) override {
        return std::make_unique<Answer>(std::move(completion), -1);
    }
};

class NullQuickLook : public QuickLook {
public:
    void look(const QList<QUrl> &, qsizetype) override {}
};

class NullNotifications : public Notifications {
public:
    void show(const Notification &) override {}
    void close(const QString &) override {}
};

class NullSingleInstance : public SingleInstance {
public:
    std::optional<QString> claim(const QStringList &) override { return std::nullopt; }
};

} // namespace

Hosts nullHosts() {
    Hosts hosts;
    hosts.preferences = std::make_unique<NullPreferences>();
    hosts.displays = std::make_unique<NullDisplays>();
    hosts.pointer = std::make_unique<NullPointerMonitor>();
    hosts.keys = std::make_unique<NullKeyMonitor>();
    hosts.panel = std::make_unique<NullPanelHost>();
    hosts.hotKeys = std::make_unique<NullHotKeys>();
    hosts.statusItem = std::make_unique<NullStatusItem>();
    hosts.contextMenu = std::make_unique<NullContextMenu>();
    hosts.applications = std::make_unique<NullApplications>();
    hosts.catalog = std::make_unique<NullApplicationCatalog>();
    hosts.openPanel = std::make_unique<NullOpenPanel>();
    hosts.loginItem = std::make_unique<NullLoginItem>();
    hosts.motion = std::make_unique<NullMotion>();
    hosts.appearance = std::make_unique<NullAppearance>();
    hosts.alertSound = std::make_unique<NullAlertSound>();
    hosts.scriptHost = std::make_unique<NullScriptHost>();
    hosts.playerNotifications = std::make_unique<NullPlayerNotifications>();
    hosts.musicPlayer = std::make_unique<NullMusicPlayer>();
    hosts.audio = std::make_unique<NullAudioSystem>();
    hosts.pasteboard = std::make_unique<NullPasteboard>();
    hosts.pictures = std::make_unique<NullPictureReader>();
    hosts.filePictures = std::make_unique<NullFilePictures>();
    hosts.shortcuts = std::make_unique<NullShortcutsTool>();
    hosts.fileServices = std::make_unique<NullFileServices>();
    hosts.calendars = std::make_unique<NullCalendarStore>();
    hosts.power = std::make_unique<NullPowerSources>();
    hosts.screenCapture = std::make_unique<NullScreenCapture>();
    hosts.quickLook = std::make_unique<NullQuickLook>();
    hosts.notifications = std::make_unique<NullNotifications>();
    return hosts;
}

std::unique_ptr<SingleInstance> nullSingleInstance() {
    return std::make_unique<NullSingleInstance>();
}

} // namespace perchly
