#pragma once

namespace perchly {

/// Limits the process: a signal ends it after 4 seconds, or 3 of CPU time. Also calls
/// limitResources(). Call it once, first.
void limitProcess(unsigned megabytes = 256);

/// Limits the address space, disables core files, and forbids gaining privileges by running another
/// program. Call it once, first.
void limitResources(unsigned megabytes);

} // namespace perchly
