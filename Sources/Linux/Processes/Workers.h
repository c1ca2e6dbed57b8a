#pragma once

#include <QObject>
#include <QThreadPool>

#include <utility>

namespace perchly {

/// Runs blocking work on threads that end when idle, and delivers each result on the thread that
/// created this object. The destructor waits for work that has begun; completions are not called
/// after that.
class Workers {
public:
    explicit Workers(int maxThreads) {
        m_pool.setMaxThreadCount(maxThreads);
        m_pool.setExpiryTimeout(1000);
    }
    ~Workers() { m_pool.clear(); }

    /// Calls `completion(work())`, never before this has returned.
    template <class Work, class Completion>
    void run(Work work, Completion completion) {
        m_pool.start([this, work = std::move(work), completion = std::move(completion)]() mutable {
            QMetaObject::invokeMethod(
                &m_receiver,
                [completion = std::move(completion), result = work()] { completion(result); },
                Qt::QueuedConnection);
        });
    }

private:
    QObject m_receiver;
    QThreadPool m_pool; ///< destroyed first, as it waits for the threads
};

} // namespace perchly
