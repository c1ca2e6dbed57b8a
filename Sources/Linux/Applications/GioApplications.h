#pragma once

#include "Applications.h"
#include "IconTheme.h"
#include "StartNotices.h"

#include <QObject>
#include <QThreadPool>

#include <memory>

struct _GCancellable;

namespace perchly {

/// Opens applications and links by GIO, each on a pool thread that ends when it is idle, since a
/// desktop entry may lie on a sleeping disk and a started service may take its time to answer.
/// Destroying it cancels what is under way; no completion is called after that.
class GioApplications : public Applications {
public:
    explicit GioApplications(StartNotices notices = {});
    ~GioApplications() override;

    void launch(const QString &path, Completion completion = {}) override;
    void open(const QString &path, Completion completion = {}) override;
    /// Found by the rules for icon themes, in the theme that is set when this is made.
    QImage icon(const QString &path, int side) override;
    void openUrl(const QUrl &url, Completion completion = {}) override;

private:
    using Launch = std::function<QString(_GCancellable *cancellable)>;

    void start(Launch function, Completion completion);

    const StartNotices m_notices;
    IconTheme m_icons;
    std::shared_ptr<_GCancellable> m_cancellable;
    QObject m_receiver; ///< completions run in its thread, as long as it lives
    QThreadPool m_pool; ///< destroyed first: it waits for the threads
};

} // namespace perchly
