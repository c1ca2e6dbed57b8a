#pragma once

#include "StartNotices.h"

#include <memory>

struct _GAppLaunchContext;

namespace perchly {

struct ReleaseLaunchContext {
    void operator()(_GAppLaunchContext *context) const;
};
using LaunchContext = std::unique_ptr<_GAppLaunchContext, ReleaseLaunchContext>;

/// The surroundings that GIO launches in: this program's own, without what was meant for its own
/// start, and with a notice for every application that says it will answer one. The notices must
/// outlive the context. For one thread at a time.
[[nodiscard]] LaunchContext makeLaunchContext(const StartNotices &notices);

} // namespace perchly
