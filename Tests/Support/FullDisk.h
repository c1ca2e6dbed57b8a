#pragma once

#include <QScopeGuard>

#include <csignal>
#include <sys/resource.h>

namespace perchly {

/// Makes writes to files fail while the result lives, as on a full disk. For tests only.
[[nodiscard]] inline auto fillDisk() {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before = {};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit full{1, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &full);
    return qScopeGuard([before] { ::setrlimit(RLIMIT_FSIZE, &before); });
}

} // namespace perchly
