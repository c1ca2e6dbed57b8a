#include "DesktopCatalog.h"

#include "ApplicationScan.h"

#include <utility>

namespace perchly {

DesktopCatalog::DesktopCatalog(QObject *parent)
    : ApplicationCatalog(parent)
    , m_watch([this] { Q_EMIT changed(); }) {
    m_pool.setMaxThreadCount(1);
    m_pool.setExpiryTimeout(1000);
}

DesktopCatalog::~DesktopCatalog() {
    m_stop.request_stop();
    m_pool.clear();
}

void DesktopCatalog::find(Completion completion) {
    m_waiting.push_back(std::move(completion));
    if (!m_searching) {
        startSearch();
    }
}

void DesktopCatalog::startSearch() {
    m_searching = true;
    const auto done = [this, completions = std::exchange(m_waiting, {})](
                          const QList<FoundApplication> &applications) {
        m_searching = false;
        if (!m_waiting.empty()) {
            startSearch();
        }
        for (const Completion &completion : completions) {
            completion(applications);
        }
    };
    m_pool.start([this, done] {
        m_watch.beginRound();
        const QList<FoundApplication> applications = scanApplications(
            MenuRules::ofSession(), [this](const std::string &folder) { m_watch.add(folder); },
            m_stop.get_token());
        m_watch.endRound();
        QMetaObject::invokeMethod(
            this, [done, applications] { done(applications); }, Qt::QueuedConnection);
    });
}

void DesktopCatalog::describe(const QStringList &paths, Completion completion) {
    m_pool.start([this, paths, completion = std::move(completion)]() mutable {
        const QList<FoundApplication> applications =
            describeApplications(paths, MenuRules::ofSession().languages);
        QMetaObject::invokeMethod(
            this, [completion = std::move(completion), applications] { completion(applications); },
            Qt::QueuedConnection);
    });
}

QString DesktopCatalog::startFolder() const {
    return QStringLiteral("/usr/share/applications");
}

} // namespace perchly
