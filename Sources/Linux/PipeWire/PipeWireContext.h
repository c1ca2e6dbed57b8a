#pragma once

#include "PipeWireHandles.h"

#include <QFuture>

namespace perchly {

/// libpipewire's objects that a connection needs.
struct PipeWireContext {
    LoopPointer loop;
    ContextPointer context; // destroyed before its loop
};

/// Creates loop and context on a separate thread, since libpipewire then asks for real-time
/// priority and waits for both buses without a timeout. The thread that takes the result enters the
/// loop. An unclaimed result is destroyed. Both members are null if creating them failed; there is
/// no result if no thread could be started.
[[nodiscard]] QFuture<PipeWireContext> makePipeWireContext();

} // namespace perchly
