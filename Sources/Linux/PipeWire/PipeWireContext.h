#pragma once

#include "PipeWireHandles.h"

#include <QFuture>

namespace perchly {

/// What the library needs before it can connect.
struct PipeWireContext {
    LoopPointer loop;
    ContextPointer context; // goes before its loop
};

/// Makes loop and context on a thread of their own, as the library asks the desktop for real-time
/// priority meanwhile, and waits for the session bus and the system bus without any limit. The
/// thread that takes the result enters the loop. Nothing waits for a result that nobody wants any
/// more: it goes when it comes. Both are null if they could not be made; no result if there was no
/// thread to be had.
[[nodiscard]] QFuture<PipeWireContext> makePipeWireContext();

} // namespace perchly
