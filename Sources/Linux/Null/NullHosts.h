#pragma once

#include "Hosts.h"
#include "SingleInstance.h"

#include <QMap>
#include <QPointer>

/// What each capability answers where there is nothing to ask. Time is never missing, so there is
/// no null clock.
namespace perchly {

/// Holds for the run only.
class NullPreferences : public Preferences {
public:
    using Preferences::Preferences;

    [[nodiscard]] std::optional<PreferenceValue> value(const QString &key) const override;
    void removeValue(const QString &key) override;

private:
    void store(const PreferenceEntries &entries) override;

    QMap<QString, PreferenceValue> m_values;
};

/// No display at all.
class NullDisplays : public Displays {
public:
    using Displays::Displays;

    [[nodiscard]] QList<Display> list() const override { return {}; }
};

/// A pointer that rests at the origin.
class NullPointerMonitor : public PointerMonitor {
public:
    using PointerMonitor::PointerMonitor;

    void start() override {}
    [[nodiscard]] ScreenPoint position() const override { return {}; }
    void setPolling(bool) override {}
};

/// A keyboard that nobody uses.
class NullKeyMonitor : public KeyMonitor {
public:
    void start(Handler) override {}
};

/// Every chord is somebody else's.
class NullHotKeys : public HotKeys {
public:
    using HotKeys::HotKeys;

    [[nodiscard]] bool registerChord(int, Chord) override { return false; }
};

/// Only what the toolkit does for any window: the panel has its size and is shown, but the window
/// system puts it where it likes and gives it the keyboard as it likes.
class NullPanelHost : public PanelHost {
public:
    using PanelHost::PanelHost;

    void attach(QWindow *panel) override;
    void place(const ScreenRect &frame, const QMarginsF &margins) override;
    void orderFront() override;
    void setShape(const QRegion &) override {}
    void takeKeyboard() override {}
    void giveKeyboardBack() override {}
    [[nodiscard]] bool hasKeyboard() const override { return false; }
    void activate(QWindow *window) override;
    [[nodiscard]] bool isComposited() const override { return false; }
    [[nodiscard]] ScreenPoint toScreen(QPointF point) const override {
        return {point.x(), -point.y()};
    }

private:
    QPointer<QWindow> m_panel;
};

/// No place for status icons.
class NullStatusItem : public StatusItem {
public:
    void show(const QIcon &, const QString &, const QList<StatusMenuEntry> &) override {}
};

/// Opens nothing and says so.
class NullApplications : public Applications {
public:
    void launch(const QString &path, Completion completion) override {
        open(path, std::move(completion));
    }
    void open(const QString &path, Completion completion) override;
    QImage icon(const QString &, int) override { return {}; }
    void openUrl(const QUrl &url, Completion completion) override;

private:
    QObject m_receiver;
};

/// No applications.
class NullApplicationCatalog : public ApplicationCatalog {
public:
    using ApplicationCatalog::ApplicationCatalog;

    void find(Completion completion) override;
    void describe(const QStringList &paths, Completion completion) override;
    [[nodiscard]] QString startFolder() const override { return {}; }
};

/// A dialog that is cancelled at once.
class NullOpenPanel : public OpenPanel {
public:
    [[nodiscard]] Task ask(const Request &, Completion completion) override;
};

/// No login to start at.
class NullLoginItem : public LoginItem {
public:
    [[nodiscard]] bool isEnabled() const override { return false; }
    [[nodiscard]] Result registerProgram() override;
    [[nodiscard]] Result unregisterProgram() override;
};

/// Nobody asked for less motion.
class NullMotion : public Motion {
public:
    using Motion::Motion;

    [[nodiscard]] bool isReduced() const override { return false; }
};

/// Silence.
class NullAlertSound : public AlertSound {
public:
    void play() override {}
};

/// No companion to run.
class NullScriptHost : public ScriptHost {
public:
    [[nodiscard]] bool isRunnable() const override { return false; }
    [[nodiscard]] Task run(const QStringList &, std::optional<std::chrono::milliseconds>,
                           Completion completion) override;
};

/// Nobody to ask about players.
class NullPlayerNotifications : public PlayerNotifications {
public:
    using PlayerNotifications::PlayerNotifications;

    void start() override {}
    [[nodiscard]] PlayerPresence presence() const override { return PlayerPresence::Unknown; }
};

/// No music application.
class NullMusicPlayer : public MusicPlayer {
public:
    void open() override {}
};

/// Nothing is ever copied, and what is written goes nowhere.
class NullPasteboard : public Pasteboard {
public:
    using Pasteboard::Pasteboard;

    [[nodiscard]] qint64 changeCount() const override { return m_count; }
    [[nodiscard]] Task read(const PasteboardRequest &request, Completion completion) override;
    void write(const QString &) override { ++m_count; }
    void writeImage(const QByteArray &) override { ++m_count; }
    void writeItems(const QList<QUrl> &) override { ++m_count; }

private:
    qint64 m_count = 0;
};

/// No tool: nothing is listed and every run fails.
class NullShortcutsTool : public ShortcutsTool {
public:
    [[nodiscard]] Task execute(const QStringList &, Completion completion) override;
    void stopRuns() override {}
    [[nodiscard]] QString folder() const override { return {}; }
    void prepareFolder(FolderCompletion completion) override;

private:
    QObject m_receiver;
};

/// Does nothing and says so.
class NullFileServices : public FileServices {
public:
    void reveal(const QUrl &, Completion completion) override;
    void findShareTargets(const QUrl &, TargetsCompletion completion) override;
    void share(const QUrl &, const QString &, Completion completion) override;

private:
    QObject m_receiver;
};

/// No calendars, and nobody to ask for them.
class NullCalendarStore : public CalendarStore {
public:
    using CalendarStore::CalendarStore;

    [[nodiscard]] CalendarAccess access() const override { return CalendarAccess::NotAsked; }
    [[nodiscard]] Task requestAccess(AccessCompletion completion) override;
    [[nodiscard]] Task events(Clock::TimePoint, Clock::TimePoint,
                              EventsCompletion completion) override;
    void expectChange() override {}
};

/// Nothing is known of what powers the machine.
class NullPowerSources : public PowerSources {
public:
    using PowerSources::PowerSources;

    void read(Completion completion) override;
};

/// No screen to capture.
class NullScreenCapture : public ScreenCapture {
public:
    [[nodiscard]] Task captureRegion(const QString &, Completion completion) override;
};

/// No window to show anything in.
class NullQuickLook : public QuickLook {
public:
    void look(const QList<QUrl> &, qsizetype, Manner) override {}
};

/// Every instance is the only one.
class NullSingleInstance : public SingleInstance {
public:
    using SingleInstance::SingleInstance;

    [[nodiscard]] bool claim() override { return true; }
};

} // namespace perchly
