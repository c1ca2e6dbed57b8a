#pragma once

#include "Applications.h"
#include "GioWorkers.h"
#include "IconTheme.h"
#include "StartNotices.h"

#include <memory>
#include <optional>

namespace perchly {

/// Opens applications and links with GIO. The destructor cancels pending launches, whose
/// completions are then not called.
class GioApplications : public Applications {
public:
    explicit GioApplications(StartNotices notices = {});

    void launch(const QString &path, Completion completion = {}) override;
    void open(const QString &path, Completion completion = {}) override;
    /// Follows the rules for icon themes.
    QImage icon(const QString &path, int side, const QString &theme) override;
    /// In the theme that icon() was last asked for.
    QImage themeIcon(const QStringList &names, int side) override;
    void openUrl(const QUrl &url, Completion completion = {}) override;

private:
    [[nodiscard]] std::shared_ptr<IconTheme> icons(const std::optional<QString> &theme);

    const StartNotices m_notices;
    const QString m_defaultTheme;
    QMutex m_mutex;                     ///< guards m_icons
    std::shared_ptr<IconTheme> m_icons; ///< the theme last asked for
    GioWorkers m_workers;
};

} // namespace perchly
