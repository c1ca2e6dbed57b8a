#include "Productivity.h"

#include "Hosts.h"
#include "ShownText.h"

#include <QPointer>

namespace perchly {

using namespace std::chrono_literals;

Productivity::Productivity(Hosts &hosts, ShelfLibrary &library, ShelfModel &model, QObject *parent)
    : QObject(parent)
    , m_hosts(hosts)
    , m_held(*hosts.openPanel)
    , m_clipboard(*hosts.pasteboard, *hosts.pictures, *hosts.clock, briefNotice())
    , m_shortcuts(*hosts.shortcuts, *hosts.applications, library, notice(), briefNotice())
    , m_layouts(*hosts.preferences, library, model) {
    const Notice notSaved = failureNotice(tr("Changes not saved"));
    connect(hosts.preferences.get(), &Preferences::failed, this, [notSaved](const QString &reason) {
        notSaved(tr("Could not save your changes yet. %1.").arg(reason));
    });
    connect(hosts.preferences.get(), &Preferences::tooLarge, this, [notSaved] {
        notSaved(tr("There is no room to keep that. Snippets, layouts, launch groups "
                    "and apps may take 512 KiB each."));
    });
}

void Productivity::setMessage(const QString &message) {
    m_dismissal.reset();
    m_message = inOneLine(message);
    Q_EMIT messageChanged();
}

Notice Productivity::notice() {
    return [guard = QPointer(this)](const QString &message) {
        if (guard) {
            guard->setMessage(message);
        }
    };
}

Notice Productivity::failureNotice(const QString &title) {
    return [guard = QPointer(this), title](const QString &message) {
        if (guard) {
            guard->setMessage(message);
            Q_EMIT guard->failed(title);
        }
    };
}

Notice Productivity::briefNotice() {
    return [guard = QPointer(this)](const QString &message) {
        if (guard) {
            guard->setMessage(message);
            guard->m_dismissal = guard->m_hosts.clock->after(
                3s, [tools = guard.data()] { tools->dismissMessage(); });
        }
    };
}

FilePictures &Productivity::filePictures() {
    return *m_hosts.filePictures;
}

void Productivity::open(const QUrl &url) {
    m_hosts.applications->openUrl(url,
                                  reportFailure(failureNotice(), tr("Could not open %1. %2"), url));
}

void Productivity::openApplication(const QString &path, const QString &name) {
    const Notice failed = failureNotice(tr("Launch failed"));
    m_hosts.applications->open(path, [failed, name](const QString &error) {
        if (!error.isEmpty()) {
            failed(tr("Could not open %1. %2").arg(name, error));
        }
    });
}

void Productivity::reveal(const QUrl &url) {
    m_hosts.fileServices->reveal(
        url, reportFailure(failureNotice(), tr("Could not reveal %1. %2"), url));
}

void Productivity::findShareTargets(const QUrl &url) {
    m_hosts.fileServices->findShareTargets(
        url, [guard = QPointer(this), url](const QList<FileServices::ShareTarget> &targets) {
            QVariantList entries;
            for (const FileServices::ShareTarget &target : targets) {
                entries.append(QVariantMap{{QStringLiteral("id"), target.id},
                                           {QStringLiteral("name"), target.name}});
            }
            if (guard) {
                Q_EMIT guard->shareTargetsFound(url, entries);
            }
        });
}

void Productivity::share(const QUrl &url, const QString &targetId) {
    m_hosts.fileServices->share(url, targetId,
                                reportFailure(failureNotice(), tr("Could not share %1. %2"), url));
}

} // namespace perchly
