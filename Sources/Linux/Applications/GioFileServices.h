#pragma once

#include "FileServices.h"
#include "StartNotices.h"

#include <QObject>
#include <QThreadPool>

#include <memory>

struct _GCancellable;

namespace perchly {

class StopRequest;

/// The desktop's file manager, the applications that GIO knows, and xdg-email. Each call runs in a
/// thread of its own, since it takes as long as a started service needs to answer.
class GioFileServices : public FileServices {
public:
    explicit GioFileServices(StartNotices notices = {});
    ~GioFileServices() override;

    void reveal(const QUrl &file, Completion completion) override;
    void findShareTargets(const QUrl &url, TargetsCompletion completion) override;
    void share(const QUrl &url, const QString &targetId, Completion completion) override;

private:
    template <class Result>
    void start(std::function<Result(_GCancellable *)> work,
               std::function<void(const Result &)> completion);

    const StartNotices m_notices;
    std::shared_ptr<_GCancellable> m_cancellable;
    std::unique_ptr<StopRequest> m_stop;
    QObject m_receiver; ///< completions run in its thread, as long as it lives
    QThreadPool m_pool; ///< destroyed first: it waits for the threads
};

} // namespace perchly
