#include "ShellFixture.h"
#include "TestRegistry.h"

#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

struct AnnouncementsFixture : ShellFixture {
    using ShellFixture::ShellFixture;

    /// The open notifications' titles and buttons.
    [[nodiscard]] QStringList shown() const {
        QStringList all;
        for (const Notification &notification : notifications.open) {
            QStringList words{notification.title};
            for (const Notification::Action &action : notification.actions) {
                words.append(action.label);
            }
            all.append(words.join(u'|'));
        }
        return all;
    }
    /// Clicks the first notification, or a button on it.
    void click(const QString &label = {}) {
        const Notification first = notifications.open.first();
        const auto found = std::ranges::find(first.actions, label, &Notification::Action::label);
        label.isNull() ? first.open() : found->run();
    }
    void showWorkspace() {
        delegate->showTools();
        QWindow *const window = fake.panel.activated.constLast();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
    }
    void loadMeetings(const QList<CalendarEvent> &events) {
        fake.calendars.granted = CalendarAccess::Granted;
        fake.calendars.stored = events;
        delegate->extras().meetings()->refresh();
        QVERIFY(fake.calendars.answerEvents());
    }
    [[nodiscard]] CalendarEvent meeting(const char *id, std::chrono::minutes start) const {
        return {.identifier = QString::fromLatin1(id),
                .title = QString::fromLatin1(id),
                .start = fake.clock.now() + start,
                .end = fake.clock.now() + start + 30min,
                .url = QStringLiteral("https://zoom.us/1")};
    }

    FakeNotifications &notifications = fake.notifications;
    ShelfModel &model = delegate->model();
};

} // namespace

class AnnouncementsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void endOfASessionOffersABreak() {
        AnnouncementsFixture shell;
        shell.model.focus();
        shell.fake.clock.advance(25min);
        QCOMPARE(shell.shown(), QStringList{QStringLiteral("Focus complete|Start break|Skip")});
        shell.model.startBreak(); // elsewhere
        QCOMPARE(shell.shown(), QStringList());
        shell.fake.clock.advance(5min);
        QCOMPARE(shell.shown(), QStringList{QStringLiteral("Break complete|Start focus|Skip")});
        shell.click(QStringLiteral("Start focus"));
        QVERIFY(shell.model.running());
        shell.pointerOntoPill(); // the open shelf shows the end
        shell.fake.clock.advance(25min);
        QCOMPARE(shell.shown(), QStringList());
    }

    void shortcutsAndCapturesAreAnnouncedUnlessSeenOrSwitchedOff() {
        AnnouncementsFixture shell(
            [](FakeHosts &fake) { fake.preferences.setBoolean(keys::announceFocus, false); });
        Productivity &tools = shell.delegate->productivity();
        const auto use = [&] {
            shell.model.focus();
            shell.fake.clock.advance(25min);
            tools.shortcuts()->run(QStringLiteral("a"));
            shell.fake.shortcuts.calls.answer(ShortcutsTool::Result{.status = 1});
            shell.delegate->extras().capture()->start();
            shell.fake.clock.advance(1s);
            shell.fake.screenCapture.captures.answer(1); // it fails
        };
        use();
        QCOMPARE(shell.shown(), QStringList{QStringLiteral("Shortcut failed")});
        // The capture opens the workspace window.
        QCOMPARE(tools.message(), QStringLiteral("The screen could not be captured."));
        tools.dismissMessage();
        shell.notifications.open.clear();
        shell.showWorkspace();
        use();
        shell.showWorkspace();
        Q_EMIT shell.delegate->extras().capture()->captured(QUrl(QStringLiteral("file:///a.png")));
        shell.fake.clock.advance(1s);
        QCOMPARE(shell.shown(), QStringList());
    }

    void takenCaptureCanBeCopied() {
        AnnouncementsFixture shell;
        Capture *const capture = shell.delegate->extras().capture();
        Q_EMIT capture->captured(QUrl(QStringLiteral("file:///a.png")));
        shell.fake.clock.advance(1s);
        QCOMPARE(shell.shown(), QStringList{QStringLiteral("Capture taken|Open|Copy")});
        shell.click(QStringLiteral("Copy"));
        QCOMPARE(shell.fake.pictures.readings.count(), 1U);
        capture->start();
        QCOMPARE(shell.shown(), QStringList());
    }

    void failureIsShownOnce() {
        AnnouncementsFixture shell;
        const QString message = QStringLiteral("Could not open App. It is missing.");
        shell.delegate->library().setItems(
            {ShelfItem::forApplication(QStringLiteral("/a"), QStringLiteral("App"))});
        QStringList answers;
        const auto launch = [&] {
            shell.delegate->perform({QStringLiteral("launch"), QStringLiteral("1")},
                                    [&](const QString &error) { answers.append(error); });
        };
        const auto fail = [&] {
            shell.fake.applications.asked.takeLast().second(QStringLiteral("It is missing."));
        };
        launch();
        fail();
        QCOMPARE(answers, QStringList{message});
        QCOMPARE(shell.notifications.open.first().body, message);
        shell.click();
        QVERIFY(shell.expanded());
        QCOMPARE(shell.model.controlError(), QString());
        shell.notifications.open.clear();
        launch();
        shell.fake.clock.advance(2s);
        QCOMPARE(answers.size(), 2);
        fail();
        QCOMPARE(answers, QStringList({message, QString()})); // it could not wait longer
        QCOMPARE(shell.model.controlError(), message);
        QCOMPARE(shell.shown(), QStringList());
        shell.delegate->productivity().failureNotice()(message);
        QCOMPARE(shell.shown(), QStringList(QStringLiteral("Command failed")));
        QCOMPARE(shell.delegate->productivity().message(), QString());
    }

    void meetingsAreAnnouncedOnceFiveMinutesBefore() {
        AnnouncementsFixture shell;
        FakeClock &clock = shell.fake.clock;
        const CalendarEvent a = shell.meeting("a", 60min);
        const CalendarEvent b = shell.meeting("b", 60min);
        const CalendarEvent late = shell.meeting("late", 90min);
        shell.loadMeetings({a, b, late});
        clock.advance(55min - 1ms);
        QCOMPARE(shell.shown(), QStringList());
        clock.advance(1ms);
        QCOMPARE(shell.shown(), QStringList({QStringLiteral("a|Join"), QStringLiteral("b|Join")}));
        shell.click(QStringLiteral("Join"));
        QCOMPARE(shell.fake.applications.opened, QStringList(QStringLiteral("https://zoom.us/1")));
        shell.notifications.open.remove(QStringLiteral("meeting a")); // closed by the user
        clock.setWallClock(clock.now() - 1h);
        clock.advance(1h);
        QCOMPARE(shell.shown(), QStringList(QStringLiteral("b|Join")));
        shell.loadMeetings({a, late}); // b was cancelled
        QCOMPARE(shell.shown(), QStringList());
        clock.sleepFor(31min);
        QCOMPARE(shell.shown(), QStringList(QStringLiteral("late|Join")));
        shell.loadMeetings({shell.meeting("late", 10min)}); // moved
        shell.notifications.open.clear();
        clock.advance(5min);
        QCOMPARE(shell.shown(), QStringList(QStringLiteral("late|Join")));
    }
};

static const RegisteredTest<AnnouncementsTest> registeredAnnouncementsTest;
#include "AnnouncementsTest.moc"
