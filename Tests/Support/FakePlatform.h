#pragma once

#include "Hosts.h"

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

} // namespace perchly
