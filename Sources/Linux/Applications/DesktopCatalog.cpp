#include "DesktopCatalog.h"

#include "KeyFile.h"

#include <QCollator>
#include <QFile>
#include <QFileInfo>

#include <gio/gdesktopappinfo.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto changeDelay = 300ms;

struct Found {
    QCollatorSortKey key;
    FoundApplication application;

    bool operator<(const Found &other) const {
        const int order = key.compare(other.key);
        return order != 0 ? order < 0 : application.path < other.application.path;
    }
};

QCollator fileBrowserOrder() {
    QLocale locale = QLocale().collation();
    if (locale.language() == QLocale::C) {
        locale =
            QLocale(QLocale::English, QLocale::UnitedStates); // C knows neither case nor numbers
    }
    QCollator collator(locale);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    return collator;
}

FoundApplication described(GAppInfo *application) {
    const char *path = g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(application));
    return {QFile::decodeName(path), QString::fromUtf8(g_app_info_get_name(application))};
}

QList<FoundApplication> findApplications() {
    const QCollator order = fileBrowserOrder();
    std::vector<Found> found;
    GList *all = g_app_info_get_all();
    for (const GList *each = all; each != nullptr; each = each->next) {
        if (g_app_info_should_show(G_APP_INFO(each->data)) != FALSE) {
            FoundApplication application = described(G_APP_INFO(each->data));
            found.push_back({order.sortKey(application.name), std::move(application)});
        }
    }
    g_list_free_full(all, g_object_unref);
    std::ranges::sort(found, std::less<>());
    QList<FoundApplication> applications;
    for (Found &each : found) {
        applications.append(std::move(each.application));
    }
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
