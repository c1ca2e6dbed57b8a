// The commands of the delegate, which arrive from a shell or over D-Bus.

#include "AppDelegate.h"
#include "Command.h"
#include "Hosts.h"

#include <QCoreApplication>

#include <algorithm>

namespace perchly {

namespace {

/// The identifier of the first row with that name in any case; null if no row has it.
QUuid identifierOf(const QString &name, const auto &records) {
    const auto found = std::ranges::find_if(records, [&name](const auto &record) {
        return record.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == records.cend() ? QUuid() : found->id;
}

} // namespace

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
        m_shelfPreferences.setEdge(argument);
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
    } else if (name == QStringLiteral("launch")) {
        return launchNamed(argument);
    } else if (name == QStringLiteral("layout")) {
        const QUuid id = identifierOf(argument, m_productivity.layouts()->list());
        if (id.isNull()) {
            return tr("There is no layout “%1”.").arg(argument);
        }
        m_productivity.layouts()->apply(id);
    } else if (name == QStringLiteral("group")) {
        const QUuid id = identifierOf(argument, extras().groups()->list());
        if (id.isNull()) {
            return tr("There is no launch group “%1”.").arg(argument);
        }
        extras().groups()->launch(id);
    }
    return {};
}

QString AppDelegate::launchNamed(const QString &entry) {
    const QList<ShelfItem> shown = m_library.shown();
    const auto named = std::ranges::find_if(shown, [&entry](const ShelfItem &item) {
        return item.name.compare(entry, Qt::CaseInsensitive) == 0;
    });
    const qsizetype index = named == shown.cend() ? entry.toLongLong() - 1 : named - shown.cbegin();
    if (index < 0 || index >= shown.size()) {
        return tr("The shelf has no entry “%1”.").arg(entry);
    }
    launch(shown.at(index).id);
    return {};
}

void AppDelegate::hideShelf() {
    if (m_opener.isKeyboardOpen()) {
        m_opener.setKeyboardOpen(false);
    } else {
        m_opener.setExpanded(false);
    }
}

} // namespace perchly
