#pragma once

#include "Hosts.h"
#include "PendingCalls.h"

#include <QRegion>
#include <QSet>

namespace perchly {

class FakeDisplays : public Displays {
public:
    QList<Display> list() const override { return displays; }

    QList<Display> displays{Display{.name = QStringLiteral("Main"),
                                    .frame = {0, 0, 1440, 900},
                                    .visibleFrame = {0, 40, 1440, 840}}};
};

class FakePointer : public PointerMonitor {
public:
    void start() override { started = true; }
    ScreenPoint position() const override { return at; }
    void setPolling(bool) override {}

    void moveTo(double x, double y) {
        at = {x, y};
        Q_EMIT moved(at);
    }

    ScreenPoint at{700, 100};
    bool started = false;
};

class FakeKeys : public KeyMonitor {
public:
    void start(Handler newHandler) override { handler = std::move(newHandler); }

    /// True when the press was consumed.
    bool press(Qt::Key key, Modifiers modifiers = {}, const QString &characters = {},
               bool isRepeat = false) {
        return handler && handler({key, modifiers, characters, isRepeat});
    }

    Handler handler;
};

class FakePanelHost : public PanelHost {
public:
    void attach(QWindow *window) override { panel = window; }
    void place(const ScreenRect &newFrame, const QMarginsF &) override {
        frame = newFrame;
        ++placements;
    }
    void orderFront() override { shown = true; }
    void setShape(const QRegion &region) override { shape = region; }
    void takeKeyboard() override { keyboard = true; }
    void giveKeyboardBack() override { keyboard = false; }
    bool hasKeyboard() const override { return keyboard; }
    void activate(QWindow *window) override { activated.append(window); }
    bool isComposited() const override { return true; }
    ScreenPoint toScreen(QPointF point) const override { return {point.x(), 900 - point.y()}; }

    QWindow *panel = nullptr;
    ScreenRect frame;
    QRegion shape;
    int placements = 0;
    bool shown = false;
    bool keyboard = false;
    QList<QWindow *> activated;
};

class FakeHotKeys : public HotKeys {
public:
    bool registerChord(int identifier, Chord chord) override {
        registered.append({identifier, chord});
        return !heldByOthers.contains(identifier);
    }

    QList<std::pair<int, Chord>> registered;
    QSet<int> heldByOthers;
};

class FakeStatusItem : public StatusItem {
public:
    void show(const QIcon &, const QString &name, const QList<StatusMenuEntry> &entries) override {
        accessibleName = name;
        menu = entries;
    }

    QString accessibleName;
    QList<StatusMenuEntry> menu;
};

class FakeApplications : public Applications {
public:
    void launch(const QString &path, Completion completion) override {
        open(path, std::move(completion));
    }
    void open(const QString &path, Completion completion) override {
        opened.append(path);
        asked.append({QUrl::fromLocalFile(path), std::move(completion)});
    }
    QImage icon(const QString &path, int side) override {
        if (path.startsWith(QStringLiteral("/gone/"))) {
            return {};
        }
        QImage picture(side, side, QImage::Format_ARGB32);
        picture.fill(Qt::red);
        return picture;
    }
    void openUrl(const QUrl &url, Completion completion) override {
        openedUrls.append(url);
        asked.append({url, std::move(completion)});
    }

    QStringList opened;
    QList<QUrl> openedUrls;
    QList<std::pair<QUrl, Completion>> asked; ///< of both kinds, in order
};

class FakeMotion : public Motion {
public:
    bool isReduced() const override { return reduced; }

    bool reduced = false;
};

class FakePlayerNotifications : public PlayerNotifications {
public:
    void start() override { started = true; }
    PlayerPresence presence() const override { return players; }

    void setPresence(PlayerPresence presence) {
        players = presence;
        Q_EMIT presenceChanged();
    }

    PlayerPresence players = PlayerPresence::Some;
    bool started = false;
};

class FakeMusicPlayer : public MusicPlayer {
public:
    void open() override { ++opened; }

    int opened = 0;
};

class FakeAlertSound : public AlertSound {
public:
    void play() override { ++played; }

    int played = 0;
};

/// Applications that are found when the test says so.
class FakeApplicationCatalog : public ApplicationCatalog {
public:
    void find(Completion completion) override { searches.push_back(std::move(completion)); }
    void describe(const QStringList &paths, Completion completion) override {
        QList<FoundApplication> applications;
        for (const QString &path : paths) {
            applications.append({path, QStringLiteral("Name of ") + path});
        }
        QMetaObject::invokeMethod(
            this, [completion = std::move(completion), applications] { completion(applications); },
            Qt::QueuedConnection);
    }
    QString startFolder() const override { return QStringLiteral("/usr/share/applications"); }

    /// Ends one of the searches under way, the oldest unless told otherwise.
    void finish(const QList<FoundApplication> &applications, std::size_t search = 0) {
        const Completion completion = std::move(searches.at(search));
        searches.erase(searches.begin() + std::ptrdiff_t(search));
        completion(applications);
    }

    std::vector<Completion> searches; ///< under way
};

class FakeFileServices : public FileServices {
public:
    void reveal(const QUrl &file, Completion completion) override {
        asked.append(QStringLiteral("reveal ") + file.toString());
        completion(error);
    }
    void findShareTargets(const QUrl &, TargetsCompletion completion) override {
        completion({{QStringLiteral("viewer"), QStringLiteral("Viewer")}});
    }
    void share(const QUrl &url, const QString &targetId, Completion completion) override {
        asked.append(QStringLiteral("share %1 with %2").arg(url.toString(), targetId));
        completion(error);
    }

    QStringList asked;
    QString error; ///< what everything ends with
};

/// A desktop that keeps what it is told, unless `failure` says why it cannot.
class FakeLoginItem : public LoginItem {
public:
    bool isEnabled() const override { return enabled; }
    Result registerProgram() override { return change(true, Outcome::Registered); }
    Result unregisterProgram() override { return change(false, Outcome::Unregistered); }

    bool enabled = false;
    QString failure;

private:
    Result change(bool wanted, Outcome outcome) {
        if (!failure.isEmpty()) {
            return {.message = failure};
        }
        enabled = wanted;
        return {.outcome = outcome};
    }
};

/// A dialog in which the test chooses.
class FakeOpenPanel : public OpenPanel {
public:
    Task ask(const Request &request, Completion completion) override {
        return m_dialogs.add({request, std::move(completion)});
    }

    /// What the open dialog was asked to show; nothing while none is open.
    [[nodiscard]] std::optional<Request> open() const {
        return m_dialogs.count() > 0 ? std::optional(m_dialogs.last().request) : std::nullopt;
    }

    /// Closes the open dialog with this choice, which is empty for "Cancel". There must be one.
    void choose(const QList<QUrl> &urls) {
        m_dialogs.take(m_dialogs.count() - 1)->completion(urls);
    }

private:
    struct Dialog {
        Request request;
        Completion completion;
    };

    PendingCalls<Dialog> m_dialogs;
};

/// Answers from the event loop, as it must.
class FakePowerSources : public PowerSources {
public:
    void read(Completion completion) override {
        ++readings;
        QMetaObject::invokeMethod(
            this, [this, completion = std::move(completion)] { completion(reading); },
            Qt::QueuedConnection);
    }

    Reading reading = QList<PowerSource>();
    int readings = 0;
};

/// Remembers what was looked at last.
class FakeQuickLook : public QuickLook {
public:
    void look(const QList<QUrl> &newItems, qsizetype newIndex) override {
        items = newItems;
        index = newIndex;
    }

    QList<QUrl> items;
    qsizetype index = -1;
};

/// A capture that ends when the test says so.
class FakeScreenCapture : public ScreenCapture {
public:
    Task captureRegion(const QString &path, Completion completion) override {
        paths.append(path);
        m_completion = std::move(completion);
        return std::make_unique<ScheduledTask>();
    }

    void finish(int status) { std::exchange(m_completion, {})(status); }

    QStringList paths;

private:
    Completion m_completion;
};

/// A tool whose calls end when the test says so.
class FakeShortcutsTool : public ShortcutsTool {
public:
    Task execute(const QStringList &arguments, Completion completion) override {
        started.append(arguments.join(u' '));
        return m_calls.add(std::move(completion));
    }
    void stopRuns() override { ++stops; }
    QString folder() const override { return QStringLiteral("/shortcuts"); }
    void prepareFolder(FolderCompletion completion) override { completion(folderError); }

    /// The call under way with that number, in the order in which they began, ends.
    void answer(int status, const QString &output = {}, std::size_t number = 0) {
        (*m_calls.take(number))({status, output});
    }
    [[nodiscard]] qsizetype underWay() const { return qsizetype(m_calls.count()); }

    QStringList started; ///< the arguments of every call there was, in order
    int stops = 0;
    QString folderError;

private:
    PendingCalls<Completion> m_calls;
};

} // namespace perchly
