#pragma once

namespace perchly {

/// Bounds the whole process, whatever it runs: it ends by a signal after 4 seconds, or 3 of CPU
/// time, and has the bounds of limitResources(). Call it once, first.
void limitProcess(unsigned megabytes = 256);

/// The process has at most that much address space, leaves no core file, and cannot gain
/// privileges by running another program. Call it once, first.
void limitResources(unsigned megabytes);

} // namespace perchly
