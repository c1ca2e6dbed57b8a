#pragma once

#include "StartNotices.h"

#include <memory>

struct _GAppLaunchContext;

namespace perchly {

struct ReleaseLaunchContext {
    void operator()(_GAppLaunchContext *context) const;
};
using LaunchContext = std::unique_ptr<_GAppLaunchContext, ReleaseLaunchContext>;

/// The environment in which GIO launches programs: ours without what belongs to
/// this program, with a token to activate a window, and with a startup notice for each application
/// that supports them. The notices must outlive the context. Use it on one thread at a time.
[[nodiscard]] LaunchContext makeLaunchContext(const StartNotices &notices);

} // namespace perchly
