#pragma once

#include <cstddef>

namespace perchly {

/// What the script engine takes from the heap, with a bound: beyond 64 MB a script fails like one
/// on a machine that is full. The functions are the engine's allocator, and `data` is this object.
class EngineMemory {
public:
    /// `owner` is for the engine's native functions, which can reach this object.
    explicit EngineMemory(void *owner)
        : m_owner(owner) {}

    [[nodiscard]] void *owner() const { return m_owner; }

    static void *allocate(void *data, std::size_t size);
    static void *reallocate(void *data, void *block, std::size_t size);
    static void release(void *data, void *block);

private:
    void *m_owner;
    std::size_t m_used = 0;
};

} // namespace perchly
