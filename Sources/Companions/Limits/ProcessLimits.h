#pragma once

namespace perchly {

/// Limits the process: a signal ends it after that many seconds or seconds of CPU time. Also calls
/// limitResources() and confineProcess(). Call it once, first.
void limitProcess(unsigned megabytes = 256, unsigned seconds = 4, unsigned cpuSeconds = 3);

/// Limits the address space, disables core files, and forbids gaining privileges by running another
/// program. Call it first.
void limitResources(unsigned megabytes);

/// From now on, no thread can run another program or open a socket other than a Unix one; both fail
/// with EACCES. Call it before reading untrusted data, but after connecting to the X server, which
/// may be remote. Does nothing on a kernel without seccomp.
void confineProcess();

} // namespace perchly
