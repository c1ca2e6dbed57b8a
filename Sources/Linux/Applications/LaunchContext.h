#pragma once

#include "StartNotices.h"

#include <memory>

struct _GAppLaunchContext;

namespace perchly {

struct ReleaseLaunchContext {
    void operator()(_GAppLaunchContext *context) const;
};
using LaunchContext = std::unique_ptr<_GAppLaunchContext, ReleaseLaunchContext>;

/// The environment that GIO launches in: this program's own, without its startup identifiers, and
/// with a startup notice for every application that supports them. The notices must outlive the
/// context. For one thread at a time.
[[nodiscard]] LaunchContext makeLaunchContext(const StartNotices &notices);

} // namespace perchly
