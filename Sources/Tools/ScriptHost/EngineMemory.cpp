#include "EngineMemory.h"

#include <cstdlib>
#include <malloc.h>

namespace perchly {

namespace {

constexpr std::size_t most = std::size_t(64) << 20;

} // namespace

void *EngineMemory::allocate(void *data, std::size_t size) {
    return reallocate(data, nullptr, size);
}

void *EngineMemory::reallocate(void *data, void *block, std::size_t size) {
    auto &memory = *static_cast<EngineMemory *>(data);
    if (size == 0) {
        release(data, block);
        return nullptr;
    }
    const std::size_t before = malloc_usable_size(block);
    if (size > before && memory.m_used + (size - before) > most) {
        return nullptr;
    }
    void *moved = std::realloc(block, size);
    if (moved != nullptr) {
        memory.m_used = memory.m_used - before + malloc_usable_size(moved);
    }
    return moved;
}

void EngineMemory::release(void *data, void *block) {
    static_cast<EngineMemory *>(data)->m_used -= malloc_usable_size(block);
    std::free(block);
}

} // namespace perchly
