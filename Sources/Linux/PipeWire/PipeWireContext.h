#pragma once

#include "PipeWireHandles.h"

#include <QFuture>

namespace perchly {

/// What libpipewire needs before it can connect.
struct PipeWireContext {
    LoopPointer loop;
    ContextPointer context; // goes before its loop
};

/// Makes loop and context on a thread of their own: libpipewire asks for real-time priority then,
/// and waits for the session bus and the system bus without a timeout. The thread that takes the
/// result enters the loop. A result that nobody takes is destroyed. Both are null if they
/// could not be made; there is no result if no thread could be started.
[[nodiscard]] QFuture<PipeWireContext> makePipeWireContext();

} // namespace perchly
