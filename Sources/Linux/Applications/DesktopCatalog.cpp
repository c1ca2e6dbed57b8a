#include "DesktopCatalog.h"

#include "KeyFile.h"
#include "TextSearch.h"

#include <QCollator>
#include <QFile>
#include <QFileInfo>

#include <gio/gdesktopappinfo.h>

#include <algorithm>
#include <chrono>
#include <malloc.h>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto changeDelay = 300ms;

QCollator fileBrowserOrder() {
    QLocale locale = QLocale().collation();
    if (locale.language() == QLocale::C) {
        locale = QLocale(QLocale::English, QLocale::UnitedStates); // C sorts by bytes
    }
    QCollator collator(locale);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    return collator;
}

FoundApplication described(GAppInfo *application) {
    GDesktopAppInfo *entry = G_DESKTOP_APP_INFO(application);
    const QString name = QString::fromUtf8(g_app_info_get_name(application));
    QStringList names{name, QString::fromUtf8(g_desktop_app_info_get_generic_name(entry))};
    const char *const *keywords = g_desktop_app_info_get_keywords(entry);
    for (; keywords != nullptr && *keywords != nullptr; ++keywords) {
        names.append(QString::fromUtf8(*keywords));
    }
    const QString program = QFile::decodeName(g_app_info_get_executable(application));
    names.append(program.mid(program.lastIndexOf(u'/') + 1));
    return {QFile::decodeName(g_desktop_app_info_get_filename(entry)), name,
            foldedForSearch(names.join(u'\n'))};
}

QList<FoundApplication> findApplications() {
    QList<FoundApplication> applications;
    GList *all = g_app_info_get_all();
    for (const GList *each = all; each != nullptr; each = each->next) {
        if (g_app_info_should_show(G_APP_INFO(each->data)) != FALSE) {
            applications.append(described(G_APP_INFO(each->data)));
        }
    }
    g_list_free_full(all, g_object_unref);
    // These strings lie between what GIO has freed: move them, so that its memory, 30 MB for 10,000
    // applications, can be returned to the system.
    for (FoundApplication &application : applications) {
        for (QString *text : {&application.path, &application.name, &application.searchText}) {
            *text = QString(text->constData(), text->size());
        }
    }
    malloc_trim(0);
    const QCollator collator = fileBrowserOrder();
    std::ranges::sort(applications, [&collator](const auto &one, const auto &other) {
        const int order = collator.compare(one.name, other.name);
        return order != 0 ? order < 0 : one.path < other.path;
    });
    return applications;
}

} // namespace

DesktopCatalog::DesktopCatalog(QObject *parent)
    : ApplicationCatalog(parent)
    , m_monitor(g_app_info_monitor_get(), [this](GAppInfoMonitor *monitor) {
        g_signal_handlers_disconnect_by_data(monitor, &m_changeDelay);
        g_object_unref(monitor);
    }) {
    m_changeDelay.setSingleShot(true);
    m_changeDelay.setInterval(changeDelay);
    connect(&m_changeDelay, &QTimer::timeout, this, &ApplicationCatalog::changed);
    const auto onChange = [](QTimer *delay) { delay->start(); };
    g_signal_connect_swapped(m_monitor.get(), "changed", G_CALLBACK(+onChange), &m_changeDelay);
}

void DesktopCatalog::find(Completion completion) {
    m_workers.run(&findApplications, std::move(completion));
}

void DesktopCatalog::describe(const QStringList &paths, Completion completion) {
    const auto describeEach = [paths] {
        QList<FoundApplication> applications;
        for (const QString &path : paths) {
            const QString name = desktopEntryText(path, G_KEY_FILE_DESKTOP_KEY_NAME);
            applications.append({path, name.isEmpty() ? QFileInfo(path).completeBaseName() : name});
        }
        return applications;
    };
    m_workers.run(describeEach, std::move(completion));
}

QString DesktopCatalog::startFolder() const {
    return QStringLiteral("/usr/share/applications");
}

} // namespace perchly
