#pragma once

#include <cstdlib>
#include <memory>

namespace perchly {

struct FreeDeleter {
    void operator()(void *memory) const { std::free(memory); }
};

/// A reply, event or error that libxcb allocated with malloc.
template <typename T>
using XcbPointer = std::unique_ptr<T, FreeDeleter>;

} // namespace perchly
