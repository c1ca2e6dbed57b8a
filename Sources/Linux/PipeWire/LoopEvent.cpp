#include "LoopEvent.h"

namespace perchly {

namespace {

void handle(void *handler, std::uint64_t) {
    (*static_cast<std::function<void()> *>(handler))();
}

} // namespace

LoopEvent::LoopEvent(pw_loop *loop, std::function<void()> handler)
    : m_loop(loop)
    , m_handler(std::move(handler))
    , m_source(pw_loop_add_event(loop, handle, &m_handler)) {}

void LoopEvent::signal() {
    pw_loop_signal_event(m_loop, m_source);
}

LoopEvent::~LoopEvent() {
    pw_loop_destroy_source(m_loop, m_source);
}

} // namespace perchly
