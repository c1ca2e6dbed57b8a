#pragma once

#include <pipewire/pipewire.h>

#include <memory>

namespace perchly {

struct PipeWireRelease {
    void operator()(pw_loop *loop) const { pw_loop_destroy(loop); }
    void operator()(pw_context *context) const { pw_context_destroy(context); }
    void operator()(pw_core *core) const { pw_core_disconnect(core); }
    void operator()(pw_proxy *proxy) const { pw_proxy_destroy(proxy); }
    void operator()(pw_stream *stream) const { pw_stream_destroy(stream); }
};

using LoopPointer = std::unique_ptr<pw_loop, PipeWireRelease>;
using ContextPointer = std::unique_ptr<pw_context, PipeWireRelease>;
using CorePointer = std::unique_ptr<pw_core, PipeWireRelease>;
using ProxyPointer = std::unique_ptr<pw_proxy, PipeWireRelease>;
using StreamPointer = std::unique_ptr<pw_stream, PipeWireRelease>;

} // namespace perchly
