#pragma once

#include "Workers.h"

#include <memory>

struct _GCancellable;

namespace perchly {

/// Worker threads for GIO calls, since a desktop entry may be on a sleeping disk and a service slow
/// to answer. The destructor cancels pending calls.
class GioWorkers {
public:
    GioWorkers();
    ~GioWorkers();

    /// Calls `completion(work(cancellable))`.
    template <class Work, class Completion>
    void run(Work work, Completion completion) {
        m_workers.run(
            [this, work = std::move(work)]() mutable { return work(m_cancellable.get()); },
            std::move(completion));
    }

private:
    std::shared_ptr<_GCancellable> m_cancellable;
    Workers m_workers{8}; ///< so that a few slow services do not hold up the next call
};

} // namespace perchly
