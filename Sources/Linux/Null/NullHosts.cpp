#include "NullHosts.h"

#include <QFileInfo>
#include <QTimer>
#include <QUrl>
#include <QWindow>

namespace perchly {

namespace {

/// What is on its way until the handle goes.
class Answer : public ScheduledTask {
public:
    explicit Answer(std::function<void()> answer) {
        m_timer.setSingleShot(true);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [answer = std::move(answer)] {
            const auto action = answer; // outlives the handle that it may destroy
            action();
        });
        m_timer.start(0);
    }

private:
    QTimer m_timer;
};

template <class Completion, class Value>
void answerLater(QObject &receiver, Completion completion, const Value &value) {
    QMetaObject::invokeMethod(
        &receiver, [completion = std::move(completion), value] { completion(value); },
        Qt::QueuedConnection);
}

} // namespace

std::optional<PreferenceValue> NullPreferences::value(const QString &key) const {
    const auto found = m_values.constFind(key);
    return found == m_values.cend() ? std::nullopt : std::optional(*found);
}

void NullPreferences::store(const PreferenceEntries &entries) {
    for (const auto &[key, value] : entries) {
        m_values.insert(key, value);
    }
    for (const auto &[key, value] : entries) {
        Q_EMIT changed(key);
    }
}

void NullPreferences::removeValue(const QString &key) {
    if (m_values.remove(key) > 0) {
        Q_EMIT changed(key);
    }
}

void NullPanelHost::attach(QWindow *panel) {
    m_panel = panel;
}

void NullPanelHost::place(const ScreenRect &frame, const QMarginsF &margins) {
    if (m_panel) {
        m_panel->resize(qRound(frame.width + margins.left() + margins.right()),
                        qRound(frame.height + margins.top() + margins.bottom()));
    }
}

void NullPanelHost::orderFront() {
    if (m_panel) {
        m_panel->show();
    }
}

void NullPanelHost::activate(QWindow *window) {
    window->show();
    window->requestActivate();
}

void NullApplications::open(const QString &path, Completion completion) {
    openUrl(QUrl::fromLocalFile(path), std::move(completion));
}

void NullApplications::openUrl(const QUrl &url, Completion completion) {
    if (completion) {
        const QString error = QStringLiteral("Nothing here can open “%1”.")
                                  .arg(url.toDisplayString(QUrl::PreferLocalFile));
        answerLater(m_receiver, std::move(completion), error);
    }
}

void NullApplicationCatalog::find(Completion completion) {
    describe({}, std::move(completion));
}

void NullApplicationCatalog::describe(const QStringList &paths, Completion completion) {
    QList<FoundApplication> applications;
    for (const QString &path : paths) {
        applications.append({path, QFileInfo(path).completeBaseName()});
    }
    QMetaObject::invokeMethod(
        this, [completion = std::move(completion), applications] { completion(applications); },
        Qt::QueuedConnection);
}

Task NullOpenPanel::ask(const Request &, Completion completion) {
    return std::make_unique<Answer>([completion = std::move(completion)] { completion({}); });
}

LoginItem::Result NullLoginItem::registerProgram() {
    return {.message = QStringLiteral("Nothing here starts programs at login.")};
}

LoginItem::Result NullLoginItem::unregisterProgram() {
    return {.outcome = Outcome::Unregistered};
}

Task NullScriptHost::run(const QStringList &, std::optional<std::chrono::milliseconds>,
                         Completion completion) {
    return std::make_unique<Answer>(
        [completion = std::move(completion)] { completion(std::nullopt); });
}

Task NullPasteboard::read(const PasteboardRequest &, Completion completion) {
    return std::make_unique<Answer>([completion = std::move(completion)] { completion({}); });
}

Task NullShortcutsTool::execute(const QStringList &, Completion completion) {
    return std::make_unique<Answer>([completion = std::move(completion)] { completion({}); });
}

Task NullCalendarStore::requestAccess(AccessCompletion completion) {
    return std::make_unique<perchly::Answer>([completion = std::move(completion)] {
        completion({.error = QStringLiteral("There are no calendars here.")});
    });
}

Task NullCalendarStore::events(Clock::TimePoint, Clock::TimePoint, EventsCompletion completion) {
    return std::make_unique<perchly::Answer>(
        [completion = std::move(completion)] { completion({}); });
}

void NullShortcutsTool::prepareFolder(FolderCompletion completion) {
    answerLater(m_receiver, std::move(completion),
                QStringLiteral("There is no folder for shortcuts here."));
}

void NullFileServices::reveal(const QUrl &, Completion completion) {
    answerLater(m_receiver, std::move(completion),
                QStringLiteral("There is no file manager here."));
}

void NullFileServices::findShareTargets(const QUrl &, TargetsCompletion completion) {
    answerLater(m_receiver, std::move(completion), QList<ShareTarget>());
}

void NullFileServices::share(const QUrl &, const QString &, Completion completion) {
    answerLater(m_receiver, std::move(completion),
                QStringLiteral("There is nothing to share with here."));
}

void NullPowerSources::read(Completion completion) {
    answerLater(*this, std::move(completion), Reading());
}

Task NullScreenCapture::captureRegion(const QString &, Completion completion) {
    return std::make_unique<Answer>([completion = std::move(completion)] { completion(-1); });
}

} // namespace perchly
