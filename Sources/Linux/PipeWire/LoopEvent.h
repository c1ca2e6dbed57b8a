#pragma once

#include "PipeWireHandles.h"

#include <functional>

namespace perchly {

/// Runs a handler on the main thread when a real-time thread requests it. Main thread only, except
/// signal().
class LoopEvent {
public:
    /// The loop must outlive it.
    LoopEvent(pw_loop *loop, std::function<void()> handler);
    ~LoopEvent();
    LoopEvent(const LoopEvent &) = delete;
    LoopEvent &operator=(const LoopEvent &) = delete;

    /// Any thread; does not block. The handler runs soon, in a callback of the connection.
    void signal();

private:
    pw_loop *m_loop;
    std::function<void()> m_handler;
    spa_source *m_source;
};

} // namespace perchly
