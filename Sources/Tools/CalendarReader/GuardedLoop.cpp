#include "GuardedLoop.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <new>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

namespace perchly {

namespace {

using Number = std::atomic<std::size_t>;

/// Ends this process when it has used so much of the processor's time from now on; zero: never.
void limitTime(std::chrono::milliseconds limit) {
    itimerval timer{};
    timer.it_value.tv_sec = limit.count() / 1000;
    timer.it_value.tv_usec = limit.count() % 1000 * 1000;
    setitimer(ITIMER_PROF, &timer, nullptr);
}

/// Runs the steps from `next` on. `next` is always the one after that which runs.
[[noreturn]] void work(Number &next, std::size_t count, const LoopLimits &limits,
                       std::chrono::steady_clock::time_point end,
                       const std::function<QByteArray(std::size_t)> &step) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    while (next < count && std::chrono::steady_clock::now() < end) {
        const std::size_t number = next++;
        limitTime(limits.step);
        const QByteArray bytes = step(number);
        limitTime({}); // what is written is written whole
        if (!writeOut(bytes)) {
            _exit(1);
        }
    }
    _exit(next < count ? 1 : 0);
}

} // namespace

bool writeOut(const QByteArray &bytes) {
    for (qsizetype at = 0; at < bytes.size();) {
        const ssize_t size =
            write(STDOUT_FILENO, bytes.constData() + at, std::size_t(bytes.size() - at));
        if (size < 0 && errno != EINTR) {
            return false;
        }
        at += size < 0 ? 0 : size;
    }
    return true;
}

bool runGuarded(std::size_t count, const LoopLimits &limits,
                const std::function<QByteArray(std::size_t number)> &step) {
    const auto end = std::chrono::steady_clock::now() + limits.whole;
    if (count == 0) {
        return true;
    }
    void *shared =
        mmap(nullptr, sizeof(Number), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) {
        return false;
    }
    auto &next = *new (shared) Number(0);
    for (std::size_t lost = 0; lost <= limits.mostLost; ++lost) {
        const pid_t child = fork();
        if (child == 0) {
            work(next, count, limits, end, step);
        }
        int status = 0;
        if (child < 0 || waitpid(child, &status, 0) != child) {
            break;
        }
        if (WIFEXITED(status)) {
            return WEXITSTATUS(status) == 0;
        }
    }
    return false;
}

} // namespace perchly
