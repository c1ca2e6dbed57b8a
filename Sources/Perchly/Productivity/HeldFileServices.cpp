// What the desktop does with a held file or link.

#include "Hosts.h"
#include "Productivity.h"

#include <QPointer>

namespace perchly {

FileServices::Completion Productivity::reportFailure(const QString &doing, const QUrl &url) {
    return [guard = QPointer(this), doing, label = labelOf(url)](const QString &error) {
        if (guard && !error.isEmpty()) {
            guard->setMessage(doing + u' ' + label + QStringLiteral(". ") + error);
        }
    };
}

void Productivity::open(const QUrl &url) {
    m_hosts.applications->openUrl(url, reportFailure(QStringLiteral("Could not open"), url));
}

void Productivity::openApplication(const QString &path) {
    m_hosts.applications->open(
        path, reportFailure(QStringLiteral("Could not open"), QUrl::fromLocalFile(path)));
}

void Productivity::reveal(const QUrl &url) {
    m_hosts.fileServices->reveal(url, reportFailure(QStringLiteral("Could not reveal"), url));
}

void Productivity::findShareTargets(const QUrl &url) {
    const auto found = [guard = QPointer(this),
                        url](const QList<FileServices::ShareTarget> &targets) {
        if (!guard) {
            return;
        }
        QVariantList entries;
        for (const FileServices::ShareTarget &target : targets) {
            entries.append(QVariantMap{{QStringLiteral("id"), target.id},
                                       {QStringLiteral("name"), target.name}});
        }
        Q_EMIT guard->shareTargetsFound(url, entries);
    };
    m_hosts.fileServices->findShareTargets(url, found);
}

void Productivity::share(const QUrl &url, const QString &targetId) {
    m_hosts.fileServices->share(url, targetId,
                                reportFailure(QStringLiteral("Could not share"), url));
}

} // namespace perchly
