#include "ProcessLimits.h"

#include <seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <initializer_list>

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

void limitProcess(unsigned megabytes, unsigned seconds, unsigned cpuSeconds) {
    // Shorter than the parent's timeout.
    alarm(seconds);
    limit(RLIMIT_CPU, cpuSeconds);
    limitResources(megabytes);
    confineProcess();
}

void limitResources(unsigned megabytes) {
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    limit(RLIMIT_CORE, 0);
    if (limitsMemory) {
        limit(RLIMIT_AS, rlim_t(megabytes) << 20);
    }
}

void confineProcess() {
    constexpr auto deny = SCMP_ACT_ERRNO(EACCES);
    constexpr scmp_arg_cmp isNotUnix{.arg = 0, .op = SCMP_CMP_NE, .datum_a = AF_UNIX, .datum_b = 0};
    const scmp_filter_ctx filter = seccomp_init(SCMP_ACT_ALLOW);
    seccomp_attr_set(filter, SCMP_FLTATR_CTL_TSYNC, 1); // for all threads
    seccomp_rule_add_array(filter, deny, SCMP_SYS(socket), 1, &isNotUnix);
    // A ring opens sockets without that call.
    for (const int call : {SCMP_SYS(execve), SCMP_SYS(execveat), SCMP_SYS(io_uring_setup)}) {
        seccomp_rule_add_array(filter, deny, call, 0, nullptr);
    }
    seccomp_load(filter);
    seccomp_release(filter);
}

} // namespace perchly
