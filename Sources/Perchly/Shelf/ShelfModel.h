#pragma once

#include "Clock.h"
#include "Media.h"
#include "ShelfEdge.h"
#include "Widget.h"

#include <QObject>
#include <QString>

#include <optional>

namespace perchly {

class AlertSound;
class Preferences;

/// The shelf's observable state: whether it is open, the layout of its collapsed form, its pinned
/// widgets, the current track, and the focus timer.
///
/// Every setter but setMedia() assigns and announces, even if the value is unchanged. Absent
/// strings are null (`isNull()`). Main thread only.
class ShelfModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool expanded READ expanded NOTIFY expandedChanged FINAL)
    Q_PROPERTY(bool keyboardOpen READ keyboardOpen NOTIFY keyboardOpenChanged FINAL)
    Q_PROPERTY(bool dragging READ dragging NOTIFY draggingChanged FINAL)
    Q_PROPERTY(QString dockEdge READ dockEdgeName NOTIFY dockEdgeChanged FINAL)
    Q_PROPERTY(bool quietFocus READ quietFocus WRITE setQuietFocus NOTIFY quietFocusChanged FINAL)
    Q_PROPERTY(double compactWidth READ compactWidth NOTIFY compactWidthChanged FINAL)
    Q_PROPERTY(double compactHeight READ compactHeight NOTIFY compactHeightChanged FINAL)
    Q_PROPERTY(
        double hardwareNotchWidth READ hardwareNotchWidth NOTIFY hardwareNotchWidthChanged FINAL)
    Q_PROPERTY(QString left READ leftTitle NOTIFY leftChanged FINAL)
    Q_PROPERTY(QString right READ rightTitle NOTIFY rightChanged FINAL)
    Q_PROPERTY(QString activity READ activity WRITE setActivity NOTIFY activityChanged FINAL)
    Q_PROPERTY(bool playing READ playing NOTIFY mediaChanged FINAL)
    Q_PROPERTY(bool musicActive READ musicActive NOTIFY mediaChanged FINAL)
    Q_PROPERTY(QString musicTitle READ musicTitle NOTIFY mediaChanged FINAL)
    Q_PROPERTY(QString musicArtist READ musicArtist NOTIFY mediaChanged FINAL)
    Q_PROPERTY(QString controlError READ controlError WRITE setControlError NOTIFY
                   controlErrorChanged FINAL)
    Q_PROPERTY(QString errorTitle READ errorTitle NOTIFY controlErrorChanged FINAL)
    Q_PROPERTY(bool choosingWidget READ choosingWidget NOTIFY choosingWidgetChanged FINAL)
    Q_PROPERTY(bool controlling READ controlling NOTIFY controllingChanged FINAL)
    Q_PROPERTY(QString mediaSource READ mediaSource NOTIFY mediaChanged FINAL)
    Q_PROPERTY(bool mediaIsBrowser READ mediaIsBrowser NOTIFY mediaChanged FINAL)
    Q_PROPERTY(bool mediaCanSeek READ mediaCanSeek NOTIFY mediaChanged FINAL)
    Q_PROPERTY(int seconds READ seconds NOTIFY secondsChanged FINAL)
    Q_PROPERTY(bool running READ running NOTIFY runningChanged FINAL)
    Q_PROPERTY(int todaySessions READ todaySessions NOTIFY todaySessionsChanged FINAL)
    Q_PROPERTY(int todayMinutes READ todayMinutes NOTIFY todayMinutesChanged FINAL)
public:
    /// Loads today's totals and starts watching for the end of the day. The three hosts must
    /// outlive the model.
    ShelfModel(Clock &clock, Preferences &preferences, AlertSound &alertSound,
               QObject *parent = nullptr);

    /// Whether the shelf is open. Only the shell sets it. Closing clears the control error.
    [[nodiscard]] bool expanded() const { return m_expanded; }
    void setExpanded(bool expanded);
    /// Whether the shelf is open in keyboard mode. Only the shell sets it.
    [[nodiscard]] bool keyboardOpen() const { return m_keyboardOpen; }
    void setKeyboardOpen(bool open);
    /// Whether the shelf is being dragged: nothing else may move, open or close it.
    [[nodiscard]] bool dragging() const { return m_dragging; }
    void setDragging(bool dragging);
    /// The edge that the shelf is laid out for.
    [[nodiscard]] ShelfEdge dockEdge() const { return m_dockEdge; }
    [[nodiscard]] QString dockEdgeName() const { return shelfEdgeName(m_dockEdge); }
    void setDockEdge(ShelfEdge edge);
    /// Whether a focus button started a focus session; the strip makes room for a quiet message.
    [[nodiscard]] bool quietFocus() const { return m_quietFocus; }
    void setQuietFocus(bool quiet);
    /// Whether the widget chooser or a menu is open, which keeps the shelf open.
    [[nodiscard]] bool choosingWidget() const { return m_choosingWidget; }
    Q_INVOKABLE void setChoosingWidget(bool choosing);

    /// Whether the user types the note, which keeps the shelf open.
    Q_INVOKABLE void setTyping(bool typing);

    /// The collapsed shelf's size, and the width of a camera housing within it; in points.
    [[nodiscard]] double compactWidth() const { return m_compactWidth; }
    void setCompactWidth(double width);
    [[nodiscard]] double compactHeight() const { return m_compactHeight; }
    void setCompactHeight(double height);
    [[nodiscard]] double hardwareNotchWidth() const { return m_hardwareNotchWidth; }
    void setHardwareNotchWidth(double width);

    /// The pinned widgets. The views store them; the model only holds them.
    [[nodiscard]] Widget left() const { return m_left; }
    [[nodiscard]] QString leftTitle() const { return widgetTitle(m_left); }
    void setLeft(Widget widget);
    [[nodiscard]] Widget right() const { return m_right; }
    [[nodiscard]] QString rightTitle() const { return widgetTitle(m_right); }
    void setRight(Widget widget);
    /// Sets the widget by title; any other text sets the slot's default.
    Q_INVOKABLE void setLeftTitle(const QString &title);
    Q_INVOKABLE void setRightTitle(const QString &title);

    /// One line of status text.
    [[nodiscard]] QString activity() const { return m_activity; }
    void setActivity(const QString &activity);

    /// The current track. Announced only if it differs.
    [[nodiscard]] const Media &media() const { return m_media; }
    void setMedia(const Media &media);
    [[nodiscard]] bool playing() const { return m_media.playing; }
    [[nodiscard]] bool musicActive() const { return m_media.active; }
    [[nodiscard]] QString musicTitle() const { return m_media.title; }
    [[nodiscard]] QString musicArtist() const { return m_media.artist; }
    [[nodiscard]] QString mediaSource() const { return m_media.source; }
    [[nodiscard]] bool mediaIsBrowser() const { return m_media.isBrowser; }
    [[nodiscard]] bool mediaCanSeek() const { return m_media.canSeek; }
    /// Why the last playback command or launch failed; null if it succeeded or the error was
    /// dismissed.
    [[nodiscard]] QString controlError() const { return m_controlError; }
    /// What failed.
    [[nodiscard]] QString errorTitle() const { return m_errorTitle; }
    void setControlError(const QString &error,
                         const QString &title = tr("Media controls unavailable"));
    Q_INVOKABLE void clearControlError() { setControlError({}); }
    /// Whether a playback command is running.
    [[nodiscard]] bool controlling() const { return m_controlling; }
    void setControlling(bool controlling);
    /// Whether the open shelf must not close by itself: a chooser or a control error is shown, a
    /// playback command is running that may end in one, or the user types the note.
    [[nodiscard]] bool staysOpen() const;

    /// The focus timer's remaining seconds, frozen while paused. They count down while the machine
    /// sleeps, too: a session that ran out meanwhile completes once, within a second of waking up.
    /// Setting the wall clock or the time zone affects only the day that the session counts for.
    [[nodiscard]] int seconds() const { return m_seconds; }
    [[nodiscard]] bool running() const { return m_running; }
    /// Whether the current or last countdown is a break.
    [[nodiscard]] bool isBreak() const { return m_isBreak; }
    /// Sessions and minutes completed on this local day.
    [[nodiscard]] int todaySessions() const { return m_todaySessions; }
    [[nodiscard]] int todayMinutes() const { return m_todayMinutes; }

    /// Starts a focus session of the stored length.
    Q_INVOKABLE void focus();
    /// Ends a running session, without credit, and starts a break of the stored length.
    Q_INVOKABLE void startBreak();
    /// Pauses a running countdown or resumes a paused one; otherwise does nothing.
    Q_INVOKABLE void togglePause();
    /// Stops and clears the countdown.
    Q_INVOKABLE void endFocus();
    /// Announces a playback control: "playpause", "next track", "previous track", "rewind" or
    /// "forward". MediaTracking carries it out.
    Q_INVOKABLE void control(const QString &word) { Q_EMIT controlRequested(word); }
    /// The user wants to see the music application.
    Q_INVOKABLE void music() { Q_EMIT musicRequested(); }
    /// Loads the day's totals, which start at zero when the local day has changed.
    void refreshDay();

Q_SIGNALS:
    /// The countdown of a focus session or a break has reached its end.
    void countdownCompleted(bool wasBreak);
    void controlRequested(const QString &word);
    void musicRequested();
    void expandedChanged();
    void keyboardOpenChanged();
    void choosingWidgetChanged();
    void typingChanged();
    void draggingChanged();
    void dockEdgeChanged();
    void quietFocusChanged();
    void compactWidthChanged();
    void compactHeightChanged();
    void hardwareNotchWidthChanged();
    void leftChanged();
    void rightChanged();
    void activityChanged();
    void mediaChanged();
    void controlErrorChanged();
    void controllingChanged();
    void secondsChanged();
    void runningChanged();
    void todaySessionsChanged();
    void todayMinutesChanged();

private:
    template <class T>
    void publish(T &field, const T &value, void (ShelfModel::*changed)()) {
        field = value;
        Q_EMIT(this->*changed)();
    }

    [[nodiscard]] int storedMinutes(const QString &key, int defaultMinutes) const;
    [[nodiscard]] int remainingSeconds(int withoutDeadline) const;
    void startCountdown(int minutes, const QString &activity);
    void setRunning(bool running);
    void scheduleTick();
    void tick();

    Clock &m_clock;
    Preferences &m_preferences;
    AlertSound &m_alertSound;

    bool m_expanded = false;
    bool m_keyboardOpen = false;
    bool m_typing = false;
    bool m_dragging = false;
    ShelfEdge m_dockEdge = ShelfEdge::Top;
    bool m_quietFocus = false;
    bool m_choosingWidget = false;
    double m_compactWidth = 190;
    double m_compactHeight = 34;
    double m_hardwareNotchWidth = 0;
    Widget m_left = Widget::Clock;
    Widget m_right = Widget::Timer;
    QString m_activity = tr("Ready when you are");
    Media m_media;
    QString m_controlError;
    QString m_errorTitle;
    bool m_controlling = false;
    int m_seconds = 0;
    bool m_running = false;
    bool m_isBreak = false;
    int m_todaySessions = 0;
    int m_todayMinutes = 0;
    std::optional<std::chrono::nanoseconds> m_deadline; ///< by Clock::uptime()
    int m_plannedMinutes = 25; ///< of the last focus session; credited when it completes
    Task m_ticker;
};

} // namespace perchly
