#pragma once

#include "ChildRuns.h"
#include "FileServices.h"
#include "GioWorkers.h"
#include "StartNotices.h"

#include <list>

namespace perchly {

/// The desktop's file manager, the applications that GIO knows, and xdg-email.
class GioFileServices : public FileServices {
public:
    explicit GioFileServices(StartNotices notices = {});

    void reveal(const QUrl &file, Completion completion) override;
    void findShareTargets(const QUrl &url, TargetsCompletion completion) override;
    void share(const QUrl &url, const QString &targetId, Completion completion) override;

private:
    void mail(const QUrl &url, const Completion &completion);

    const StartNotices m_notices;
    ChildRuns m_mails{100}; // xdg-email may run until the mail is sent
    std::list<Task> m_mailTasks;
    GioWorkers m_workers;
};

} // namespace perchly
