#pragma once

#include "Hosts.h"
#include "PendingCalls.h"
#include "TextSearch.h"

#include <QMap>
#include <QSet>

namespace perchly {

class FakeDisplays : public Displays {
public:
    QList<Display> list() const override { return displays; }

    QList<Display> displays{Display{.name = QStringLiteral("Main"),
                                    .frame = {0, 0, 1440, 900},
                                    .visibleFrame = {0, 40, 1440, 860}}};
};

class FakePointer : public PointerMonitor {
public:
    void start() override {}
    ScreenPoint position() const override { return at; }
    bool isButtonHeld() const override { return held; }
    void watch(Watch watch) override { watched = watch; }
    void release() {
        held = false;
        if (watched == Watch::Releases) {
            Q_EMIT moved(at);
        }
    }

    void moveTo(double x, double y) {
        at = {x, y};
        Q_EMIT moved(at);
    }

    ScreenPoint at{700, 100};
    bool held = false;
    Watch watched = Watch::Movements;
};

class FakeKeys : public KeyMonitor {
public:
    void start(Handler newHandler) override { handler = std::move(newHandler); }

    /// True if the press was consumed.
    bool press(Qt::Key key, Modifiers modifiers = {}, const QString &characters = {},
               bool isRepeat = false) {
        return handler && handler({key, modifiers, characters, isRepeat});
    }

    Handler handler;
};

class FakePanelHost : public PanelHost {
public:
    void attach(QWindow *window) override { panel = window; }
    void place(const ScreenRect &newFrame, const QMarginsF &) override { frame = newFrame; }
    void orderFront() override {}
    void setShape(const QRegion &) override {}
    void setBlur(const QRegion &) override {}
    void setMenuOpen(bool) override {}
    void takeKeyboard() override { keyboard = true; }
    void giveKeyboardBack() override { keyboard = false; }
    bool hasKeyboard() const override { return keyboard; }
    void activate(QWindow *window) override { activated.append(window); }
    bool isComposited() const override { return true; }
    ScreenPoint toScreen(QPointF point) const override { return {point.x(), 900 - point.y()}; }
    void markPlace(const ScreenRect &newMark) override { mark = newMark; }

    QWindow *panel = nullptr;
    ScreenRect frame;
    ScreenRect mark;
    bool keyboard = false;
    QList<QWindow *> activated;
};

class FakeHotKeys : public HotKeys {
public:
    bool registerChord(int identifier, QKeyCombination chord) override {
        registered.insert(identifier, chord);
        return !heldByOthers.contains(identifier);
    }
    void releaseChord(int identifier) override { registered.remove(identifier); }
    void setKeyboardGrabbed(bool) override {}
    bool isSupported() const override { return supported; }

    QSet<int> heldByOthers;
    bool supported = true;
    QMap<int, QKeyCombination> registered;
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
    QImage icon(const QString &, int side, const QString &) override {
        QImage picture(side, side, QImage::Format_ARGB32);
        picture.fill(Qt::red);
        return picture;
    }
    QImage themeIcon(const QStringList &, int side) override { return icon({}, side, {}); }
    void openUrl(const QUrl &url, Completion completion) override {
        opened.append(url.toString());
        asked.append({url, std::move(completion)});
    }

    QStringList opened;                       ///< paths and URLs, in order
    QList<std::pair<QUrl, Completion>> asked; ///< the same, still to be answered
};

class FakeContextMenu : public ContextMenu {
public:
    void open(const QList<StatusMenuEntry> &entries, QPoint, Opener,
              std::function<void()> onClosed) override {
        shown = entries;
        closed = std::move(onClosed);
    }
    void close() override {}

    QList<StatusMenuEntry> shown;
    std::function<void()> closed;
};

class FakeMotion : public Motion {
public:
    bool isReduced() const override { return reduced; }

    bool reduced = false;
};

class FakePlayerNotifications : public PlayerNotifications {
public:
    void start() override {}
    PlayerPresence presence() const override { return players; }

    void setPresence(PlayerPresence presence) {
        players = presence;
        Q_EMIT presenceChanged();
    }

    PlayerPresence players = PlayerPresence::Some;
};

class FakeMusicPlayer : public MusicPlayer {
public:
    void open(Completion completion) override { openings.append(std::move(completion)); }

    QList<Completion> openings;
};

class FakeAlertSound : public AlertSound {
public:
    void play() override { ++played; }

    int played = 0;
};

/// Applications whose searches and descriptions the test answers.
class FakeApplicationCatalog : public ApplicationCatalog {
public:
    void find(Completion completion) override { searches.append(std::move(completion)); }
    void describe(const QStringList &paths, Completion completion) override {
        described = paths;
        find(std::move(completion));
    }
    QString startFolder() const override { return {}; }

    /// Ends a running search, by default the oldest. The search texts need no names and folding.
    void finish(QList<FoundApplication> applications, qsizetype search = 0) {
        for (FoundApplication &application : applications) {
            application.searchText =
                foldedForSearch(application.name + u'\n' + application.searchText);
        }
        searches.takeAt(search)(applications);
    }

    QList<Completion> searches; ///< running
    QStringList described;
};

/// A dialog in which the test chooses.
class FakeOpenPanel : public OpenPanel {
public:
    Task ask(const Request &, Completion completion) override {
        return dialogs.add(std::move(completion));
    }

    PendingCalls<Completion> dialogs;
};

/// A reader whose readings end when the test says so.
class FakePictureReader : public PictureReader {
public:
    Task readAsPng(const QString &, int, Completion completion) override {
        return readings.add(std::move(completion));
    }

    PendingCalls<Completion> readings;
};

/// Power sources that answer at once.
class FakePowerSources : public PowerSources {
public:
    void read(Completion completion) override { completion(reading); }

    Reading reading = QList<PowerSource>();
};

/// Records the requested items, starting with the one to show first.
class FakeQuickLook : public QuickLook {
public:
    void look(const QList<QUrl> &items, qsizetype index) override { shown = items.mid(index); }

    QList<QUrl> shown;
};

/// Holds the open notifications by their tags.
class FakeNotifications : public Notifications {
public:
    void show(const Notification &notification) override {
        open.insert(notification.tag, notification);
    }
    void close(const QString &tag) override { open.remove(tag); }

    QMap<QString, Notification> open;
};

/// A capture that the test ends.
class FakeScreenCapture : public ScreenCapture {
public:
    Task captureRegion(const QString &, Completion completion) override {
        return captures.add(std::move(completion));
    }

    PendingCalls<Completion> captures;
};

/// A tool whose calls the test ends.
class FakeShortcutsTool : public ShortcutsTool {
public:
    Task execute(const QStringList &arguments, Completion completion) override {
        started.append(arguments.join(u' '));
        return calls.add(std::move(completion));
    }
    QString resume(std::function<void()>) override { return {}; }
    void stopRuns() override { ++stops; }
    QString folder() const override { return QStringLiteral("/shortcuts"); }
    void prepareFolder(FolderCompletion completion) override { completion(folderError); }

    QStringList started; ///< the arguments of every call, in order
    PendingCalls<Completion> calls;
    int stops = 0;
    QString folderError;
};

} // namespace perchly
