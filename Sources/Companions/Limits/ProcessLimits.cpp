#include "ProcessLimits.h"

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace perchly {

namespace {

// A sanitizer's shadow memory alone takes terabytes of address space.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool limitsMemory = false;
#else
constexpr bool limitsMemory = true;
#endif

void limit(__rlimit_resource resource, rlim_t value) {
    const rlimit both{value, value};
    setrlimit(resource, &both);
}

} // namespace

void limitProcess(unsigned megabytes) {
    // Shorter than the parent's timeout.
    alarm(4);
    limit(RLIMIT_CPU, 3);
    limitResources(megabytes);
}

void limitResources(unsigned megabytes) {
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    limit(RLIMIT_CORE, 0);
    if (limitsMemory) {
        limit(RLIMIT_AS, rlim_t(megabytes) << 20);
    }
}

} // namespace perchly
