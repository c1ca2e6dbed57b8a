#pragma once

#include "ApplicationCatalog.h"
#include "Workers.h"

#include <QTimer>

#include <memory>

struct _GAppInfoMonitor;

namespace perchly {

/// The applications that GIO finds. A change in a subfolder of an applications folder is noticed at
/// the next change in the folder itself, where installers update a cache. Needs Qt's GLib event
/// loop to notice changes.
class DesktopCatalog : public ApplicationCatalog {
    Q_OBJECT
public:
    explicit DesktopCatalog(QObject *parent = nullptr);

    void find(Completion completion) override;
    void describe(const QStringList &paths, Completion completion) override;
    [[nodiscard]] QString startFolder() const override;

private:
    std::shared_ptr<_GAppInfoMonitor> m_monitor;
    QTimer m_changeDelay; ///< an installer changes several files
    Workers m_workers{1};
};

} // namespace perchly
