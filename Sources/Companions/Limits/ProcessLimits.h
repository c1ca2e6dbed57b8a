#pragma once

namespace perchly {

/// Bounds the whole process, whatever it runs: it ends by a signal after 4 seconds, or 3 of CPU
/// time, has at most that much address space, and leaves no core file. Call it once, first.
void limitProcess(unsigned megabytes = 256);

} // namespace perchly
