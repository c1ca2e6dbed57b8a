#include "ServiceQuestion.h"

#include "ServiceTalk.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr qsizetype mostBytes = qsizetype(40) << 20; // more than the child says
constexpr auto toTakeItIn = 100ms;

} // namespace

ServiceQuestion::ServiceQuestion(const std::optional<TimeWindow> &window,
                                 std::chrono::steady_clock::time_point until)
    : m_until(until) {
    std::array<int, 2> ends{};
    if (!mayHaveServiceCalendars() || pipe2(ends.data(), O_CLOEXEC) != 0) {
        return;
    }
    m_child = fork();
    if (m_child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        close(ends[1]);
        talkToService(window, until - toTakeItIn);
        _exit(0);
    }
    close(ends[1]);
    m_pipe = ends[0];
}

ServiceQuestion::~ServiceQuestion() {
    if (m_pipe >= 0) {
        close(m_pipe);
    }
    if (m_child > 0) {
        kill(m_child, SIGKILL);
        waitpid(m_child, nullptr, 0);
    }
}

ServiceAnswer ServiceQuestion::take() {
    if (m_pipe < 0) {
        return {.saidWhich = true, .calendars = {}};
    }
    QByteArray bytes;
    std::array<char, 64UL * 1024> buffer{};
    while (bytes.size() < mostBytes) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            m_until - std::chrono::steady_clock::now());
        pollfd readable{m_pipe, POLLIN, 0};
        if (poll(&readable, 1, std::max(int(left.count()), 0)) <= 0) {
            break;
        }
        const ssize_t size = read(m_pipe, buffer.data(), buffer.size());
        if (size <= 0) {
            break;
        }
        bytes.append(buffer.data(), size);
    }
    return ServiceAnswer::parse(bytes);
}

} // namespace perchly
