// The commands of the delegate, which arrive from a shell or over D-Bus.

#include "AppDelegate.h"
#include "Command.h"
#include "Hosts.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace perchly {

using namespace std::chrono_literals;

namespace {

/// The identifier of the first row with that name in any case; null if no row has it.
QUuid identifierOf(const QString &name, const auto &records) {
    const auto found = std::ranges::find_if(records, [&name](const auto &record) {
        return record.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == records.cend() ? QUuid() : found->id;
}

} // namespace

void AppDelegate::perform(const QStringList &command, const Answer &answer) {
    const QString problem = perform(command);
    if (problem.isEmpty() && command.first() == QStringLiteral("launch")) {
        launchNamed(command.at(1), inTime(answer));
    } else if (problem.isEmpty() && command.first() == QStringLiteral("group")) {
        launchGroup(command.at(1), inTime(answer));
    } else {
        answer(problem);
    }
}

QString AppDelegate::perform(const QStringList &command) {
    if (const QString problem = command::problem(command); !problem.isEmpty()) {
        return problem;
    }
    if (command::needsDisplay(command) && m_hosts.displays->list().isEmpty()) {
        return tr("Perchly is running without a display.");
    }
    if (command == QStringList{QStringLiteral("focus"), QStringLiteral("pause")} &&
        m_model.seconds() == 0) {
        return tr("No focus session or break is running.");
    }
    static const QHash<QString, void (*)(AppDelegate &)> actions{
        {QStringLiteral("show"), [](AppDelegate &self) { self.showShelf(); }},
        {QStringLiteral("hide"), [](AppDelegate &self) { self.hideShelf(); }},
        {QStringLiteral("toggle"), [](AppDelegate &self) { self.toggleKeyboardOpen(); }},
        {QStringLiteral("search"), [](AppDelegate &self) { self.showSearch(); }},
        {QStringLiteral("workspace"), [](AppDelegate &self) { self.showTools(); }},
        {QStringLiteral("mixer"), [](AppDelegate &self) { self.showMixer(); }},
        {QStringLiteral("settings"), [](AppDelegate &self) { self.showSettings(); }},
        {QStringLiteral("capture"), [](AppDelegate &self) { self.extras().capture()->start(); }},
        {QStringLiteral("quit"), [](AppDelegate &self) { self.terminate(); }},
        {QStringLiteral("focus start"), [](AppDelegate &self) { self.m_model.focus(); }},
        {QStringLiteral("focus break"), [](AppDelegate &self) { self.m_model.startBreak(); }},
        {QStringLiteral("focus pause"), [](AppDelegate &self) { self.m_model.togglePause(); }},
        {QStringLiteral("focus stop"), [](AppDelegate &self) { self.m_model.endFocus(); }}};
    if (const auto action = actions.value(command.join(u' '))) {
        // Queued: the answer must not wait until a window is created.
        QMetaObject::invokeMethod(
            this, [this, action] { action(*this); }, Qt::QueuedConnection);
        return {};
    }
    return perform(command.first(), command.mid(1));
}

QString AppDelegate::perform(const QString &name, const QStringList &arguments) {
    const QString &argument = arguments.first();
    if (name == QStringLiteral("workspace")) {
        extras().setSection(command::workspaceSection(argument));
        QMetaObject::invokeMethod(this, &AppDelegate::showTools, Qt::QueuedConnection);
    } else if (name == QStringLiteral("hold")) {
        m_productivity.held()->hold(QUrl::fromStringList(arguments));
    } else if (name == QStringLiteral("dock")) {
        const ShelfPosition now = m_shelfPreferences.position();
        const ShelfEdge edge = *shelfEdgeFromName(argument);
        const bool isBetweenSides = edge != ShelfEdge::Top && now.edge != ShelfEdge::Top;
        m_shelfPreferences.dock({edge, isBetweenSides ? now.position : 0.5},
                                m_shelfPreferences.display());
    } else if (name == QStringLiteral("player")) {
        if (m_hosts.playerNotifications->presence() == PlayerPresence::None) {
            return tr("Nothing is playing. Start a player and try again.");
        }
        static const QHash<QString, QString> words{
            {QStringLiteral("play-pause"), QStringLiteral("playpause")},
            {QStringLiteral("next"), QStringLiteral("next track")},
            {QStringLiteral("previous"), QStringLiteral("previous track")},
            {QStringLiteral("back"), QStringLiteral("rewind")},
            {QStringLiteral("forward"), QStringLiteral("forward")}};
        m_model.control(words.value(argument));
    } else if (name == QStringLiteral("layout")) {
        const QUuid id = identifierOf(argument, m_productivity.layouts()->list());
        if (id.isNull()) {
            return tr("There is no layout “%1”.").arg(argument);
        }
        m_productivity.layouts()->apply(id);
    }
    return {};
}

/// Passes on the first error; none if there is no result in time.
AppDelegate::Answer AppDelegate::inTime(const Answer &answer) {
    struct Pending {
        Answer answer;
        Task limit;
    };
    const auto pending = std::make_shared<Pending>(Pending{.answer = answer, .limit = {}});
    const auto give = [pending = pending.get()](const QString &error) {
        pending->limit.reset();
        if (const Answer open = std::exchange(pending->answer, {})) {
            open(error);
        }
    };
    pending->limit = m_hosts.clock->after(1500ms, [give] { give({}); });
    return [pending, give](const QString &error) { give(error); };
}

void AppDelegate::launchGroup(const QString &name, const Answer &answer) {
    const QUuid id = identifierOf(name, extras().groups()->list());
    if (id.isNull()) {
        answer(tr("There is no launch group “%1”.").arg(name));
    } else {
        extras().groups()->launch(id, answer);
    }
}

void AppDelegate::launchNamed(const QString &entry, const Answer &answer) {
    const QList<ShelfItem> shown = m_library.shown();
    const auto named = std::ranges::find_if(shown, [&entry](const ShelfItem &item) {
        return item.name.compare(entry, Qt::CaseInsensitive) == 0;
    });
    const qsizetype index = named == shown.cend() ? entry.toLongLong() - 1 : named - shown.cbegin();
    if (index < 0 || index >= shown.size()) {
        answer(tr("The shelf has no entry “%1”.").arg(entry));
    } else {
        launch(shown.at(index).id, answer);
    }
}

void AppDelegate::hideShelf() {
    if (m_opener.isKeyboardOpen()) {
        m_opener.setKeyboardOpen(false);
    } else {
        m_opener.setExpanded(false);
    }
}

} // namespace perchly
