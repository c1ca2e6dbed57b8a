#include "Announcements.h"

#include "Hosts.h"
#include "Productivity.h"
#include "ShelfExtras.h"
#include "ShelfModel.h"
#include "ShelfPreferences.h"
#include "ShellActions.h"
#include "ShownText.h"
#include "TimeText.h"

#include <QDateTime>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto meetingLead = 5min;

// Tags of notifications. Those of meetings continue with the meeting's identifier, as several may
// start at a time.
const QString focusTag = QStringLiteral("focus");
const QString shortcutTag = QStringLiteral("shortcut");
const QString captureTag = QStringLiteral("capture");
const QString failureTag = QStringLiteral("failure");
const QString meetingTag = QStringLiteral("meeting ");

} // namespace

Announcements::Announcements(Hosts &hosts, const Sources &sources, ShellActions &shell,
                             std::function<bool()> seesWorkspace)
    : m_hosts(hosts)
    , m_notifications(*hosts.notifications)
    , m_sources(sources)
    , m_shell(shell)
    , m_seesWorkspace(std::move(seesWorkspace)) {
    followFocus();
    followShortcuts();
    followCaptures();
    followFailures();
    connect(m_sources.extras.meetings(), &Meetings::eventsChanged, this,
            &Announcements::remindOfMeetings);
    remindOfMeetings();
}

void Announcements::followFocus() {
    connect(&m_sources.model, &ShelfModel::countdownCompleted, this, &Announcements::announceFocus);
    connect(&m_sources.model, &ShelfModel::runningChanged, this,
            [this] { m_notifications.close(focusTag); });
}

void Announcements::announceFocus(bool wasBreak) {
    if (!m_sources.preferences.announcesFocus() || m_sources.model.expanded() ||
        sees(QStringLiteral("Focus"))) {
        return;
    }
    ShelfModel *const model = &m_sources.model;
    const Notification::Action startBreak{tr("Start break"), [model] { model->startBreak(); }};
    const Notification::Action skip{tr("Skip"), [model] { model->endFocus(); }};
    const Notification::Action startFocus{tr("Start focus"), [model] {
                                              model->setQuietFocus(true);
                                              model->focus();
                                          }};
    m_notifications.show(
        {.tag = focusTag,
         .title = wasBreak ? tr("Break complete") : tr("Focus complete"),
         .body = wasBreak ? tr("Ready for another session?") : tr("Time for a break."),
         .open = opening(QStringLiteral("Focus")),
         .actions = wasBreak ? QList{startFocus, skip} : QList{startBreak, skip}});
}

void Announcements::followShortcuts() {
    Shortcuts *const shortcuts = m_sources.productivity.shortcuts();
    connect(shortcuts, &Shortcuts::busyChanged, this,
            [this] { m_notifications.close(shortcutTag); });
    connect(shortcuts, &Shortcuts::ended, this, [this](const QString &name, std::int32_t status) {
        if (m_seesWorkspace()) {
            return;
        }
        m_sources.productivity.dismissMessage();
        if (m_sources.preferences.announcesShortcuts()) {
            m_notifications.show(
                {.tag = shortcutTag,
                 .title = status == 0 ? tr("Shortcut finished") : tr("Shortcut failed"),
                 .body = status > 0 ? tr("%1 ended with exit status %2.")
                                          .arg(inOneLine(name), QString::number(status))
                                    : inOneLine(name),
                 .open = opening(QStringLiteral("Shortcuts")),
                 .actions = {}});
        }
    });
}

void Announcements::followCaptures() {
    Capture *const capture = m_sources.extras.capture();
    connect(capture, &Capture::activeChanged, this, [this, capture] {
        if (capture->active()) {
            m_notifications.close(captureTag);
        }
    });
    connect(capture, &Capture::captured, this, [this](const QUrl &file) {
        // The workspace window opens and shows it, unless the user keeps that out of sight.
        m_captured = m_hosts.clock->after(1s, [this, file] {
            if (m_sources.preferences.announcesCaptures() && !m_seesWorkspace()) {
                announceCapture(file.toLocalFile());
            }
        });
    });
}

void Announcements::announceCapture(const QString &file) {
    Productivity *const tools = &m_sources.productivity;
    const QUrl url = QUrl::fromLocalFile(file);
    m_notifications.show(
        {.tag = captureTag,
         .title = tr("Capture taken"),
         .body = tr("It is held in Files."),
         .open = opening(QStringLiteral("Files")),
         .actions = {{tr("Open"), [tools, url] { tools->open(url); }},
                     {tr("Copy"), [tools, url] { tools->clipboard()->copyImage(url); }}},
         .picture = file});
}

void Announcements::followFailures() {
    ShelfModel *const model = &m_sources.model;
    connect(model, &ShelfModel::controlErrorChanged, this, [this, model] {
        if (model->controlError().isEmpty()) {
            m_notifications.close(failureTag);
        } else if (!model->expanded()) {
            const QString title = model->errorTitle();
            const QString error = model->controlError();
            model->clearControlError(); // so that the shelf does not show it later
            announceFailure(title, error, [this] { m_shell.showShelf(); });
        }
    });
    Productivity *const tools = &m_sources.productivity;
    connect(tools, &Productivity::failed, this, [this, tools](const QString &title) {
        if (m_sources.preferences.announcesFailures() && !m_seesWorkspace()) {
            announceFailure(title, tools->message(), [this] { m_shell.showTools(); });
            tools->dismissMessage();
        }
    });
}

void Announcements::announceFailure(const QString &title, const QString &body,
                                    std::function<void()> open) {
    if (m_sources.preferences.announcesFailures()) {
        m_notifications.show({.tag = failureTag,
                              .title = title,
                              .body = body,
                              .open = std::move(open),
                              .actions = {}});
    }
}

void Announcements::remindOfMeetings() {
    const Clock::TimePoint now = m_hosts.clock->now();
    const auto before = std::exchange(m_reminded, {});
    m_reminder.reset();
    for (const CalendarEvent &event : m_sources.extras.meetings()->events()) {
        const auto reminded = before.constFind(event.identifier);
        const bool isNew = reminded == before.cend() || *reminded != event.start;
        if (isNew && event.start > now + meetingLead) {
            if (!m_reminder) { // they come earliest first
                m_reminder =
                    m_hosts.clock->at(event.start - meetingLead, [this] { remindOfMeetings(); });
            }
            continue;
        }
        m_reminded.insert(event.identifier, event.start);
        if (isNew && event.start > now) {
            announceMeeting(event.identifier, event.title, event.start);
        }
    }
    for (auto old = before.keyBegin(); old != before.keyEnd(); ++old) {
        if (!m_reminded.contains(*old)) {
            m_notifications.close(meetingTag + *old);
        }
    }
}

void Announcements::announceMeeting(const QString &identifier, const QString &title,
                                    Clock::TimePoint start) {
    if (!m_sources.preferences.announcesMeetings() || sees(QStringLiteral("Meetings"))) {
        return;
    }
    const auto sinceEpoch = std::chrono::floor<std::chrono::milliseconds>(start);
    const auto local = QDateTime::fromMSecsSinceEpoch(sinceEpoch.time_since_epoch().count());
    QList<Notification::Action> actions;
    if (const QUrl link = m_sources.extras.meetings()->linkOf(identifier); !link.isEmpty()) {
        actions.append(
            {tr("Join"), [tools = &m_sources.productivity, link] { tools->open(link); }});
    }
    m_notifications.show(
        {.tag = meetingTag + identifier,
         .title = title.isEmpty() ? tr("Meeting") : inOneLine(title),
         .body = tr("Starts at %1.", "time of day").arg(timeOfDay(local.time(), QLocale())),
         .open = opening(QStringLiteral("Meetings")),
         .actions = actions});
}

/// Shows the workspace window on that section.
std::function<void()> Announcements::opening(const QString &section) {
    return [this, section] {
        m_sources.extras.setSection(section);
        m_shell.showTools();
    };
}

bool Announcements::sees(const QString &section) const {
    return m_seesWorkspace() && m_sources.extras.section() == section;
}

} // namespace perchly
