#include "OutputBudget.h"

#include <initializer_list>
#include <new>
#include <sys/mman.h>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto longestCalendar = 1s; // one of 10,000 events takes a tenth of it

} // namespace

OutputBudget::OutputBudget() {
    void *memory =
        mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory != MAP_FAILED) {
        m_shared = new (memory) Shared;
    }
}

OutputBudget::~OutputBudget() {
    if (m_shared != nullptr) {
        munmap(m_shared, sizeof(Shared));
    }
}

bool OutputBudget::begin(std::size_t calendar) {
    if (m_shared == nullptr) {
        return false;
    }
    const auto now = std::chrono::steady_clock::now();
    if (m_shared->calendar != calendar) {
        m_shared->calendar = calendar;
        m_shared->since = now;
        m_shared->ofCalendar = {};
    }
    m_shared->ofEvent = {};
    const bool inTime = now - m_shared->since < longestCalendar;
    m_shared->spent = m_shared->spent || !inTime;
    return inTime;
}

bool OutputBudget::fits(const Used &used, const Used &most, std::size_t bytes) {
    return used.bytes + bytes <= most.bytes && used.occurrences < most.occurrences;
}

bool OutputBudget::take(std::size_t bytes) {
    // Whoever reads it takes 64 MiB. A busy team's week is a few hundred kilobytes.
    constexpr std::size_t mebibyte = std::size_t(1) << 20;
    constexpr Used mostOfEvent{mebibyte, 2'000};
    constexpr Used mostOfCalendar{4 * mebibyte, 4'000};
    constexpr Used mostOfAll{16 * mebibyte, 10'000};
    if (m_shared == nullptr) {
        return false;
    }
    if (!fits(m_shared->ofEvent, mostOfEvent, bytes) ||
        !fits(m_shared->ofCalendar, mostOfCalendar, bytes) ||
        !fits(m_shared->ofAll, mostOfAll, bytes)) {
        m_shared->spent = true;
        return false;
    }
    for (Used *used : {&m_shared->ofEvent, &m_shared->ofCalendar, &m_shared->ofAll}) {
        used->bytes += bytes;
        ++used->occurrences;
    }
    return true;
}

bool OutputBudget::wasSpent() const {
    return m_shared == nullptr || m_shared->spent;
}

} // namespace perchly
