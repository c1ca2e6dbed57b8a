#pragma once

#include "Applications.h"
#include "GioWorkers.h"
#include "IconTheme.h"
#include "StartNotices.h"

namespace perchly {

/// Opens applications and links with GIO. The destructor cancels pending launches, whose
/// completions are then not called.
class GioApplications : public Applications {
public:
    explicit GioApplications(StartNotices notices = {});

    void launch(const QString &path, Completion completion = {}) override;
    void open(const QString &path, Completion completion = {}) override;
    /// Follows the rules for icon themes, in the theme set when this object was created.
    QImage icon(const QString &path, int side) override;
    QImage themeIcon(const QStringList &names, int side) override;
    void openUrl(const QUrl &url, Completion completion = {}) override;

private:
    const StartNotices m_notices;
    IconTheme m_icons;
    GioWorkers m_workers;
};

} // namespace perchly
