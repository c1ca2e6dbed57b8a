#pragma once

#include "PipeWireHandles.h"

#include <functional>

namespace perchly {

/// Lets a real-time thread have something done by the main thread. Main thread only, apart from
/// signal().
class LoopEvent {
public:
    /// The loop outlives it.
    LoopEvent(pw_loop *loop, std::function<void()> handler);
    ~LoopEvent();
    LoopEvent(const LoopEvent &) = delete;
    LoopEvent &operator=(const LoopEvent &) = delete;

    /// Any thread; it does not wait. The handler runs soon, within a callback of the connection.
    void signal();

private:
    pw_loop *m_loop;
    std::function<void()> m_handler;
    spa_source *m_source;
};

} // namespace perchly
