#include "ServiceQuestion.h"

#include "ServiceTalk.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr qsizetype mostBytes = qsizetype(40) << 20; // more than the child says
constexpr auto toTakeItIn = 100ms;
constexpr auto leastWait = 300ms; // for a child that a busy machine held up

/// From the start, wherever whoever writes to the file is.
QByteArray answerBytes(int file) {
    QByteArray bytes;
    std::array<char, 64UL * 1024> buffer{};
    ssize_t size = 0;
    while (bytes.size() < mostBytes &&
           (size = pread(file, buffer.data(), buffer.size(), bytes.size())) > 0) {
        bytes.append(buffer.data(), size);
    }
    return bytes;
}

} // namespace

ServiceQuestion::ServiceQuestion(const std::optional<TimeWindow> &window,
                                 std::chrono::steady_clock::time_point until)
    : m_until(until)
    , m_asks(mayHaveServiceCalendars()) {
    std::array<int, 2> ends{};
    // A pipe would hold the child up until it is read, which is when the files are.
    m_answer = m_asks ? memfd_create("answer", MFD_CLOEXEC) : -1;
    if (m_answer < 0 || pipe2(ends.data(), O_CLOEXEC) != 0) {
        return;
    }
    m_child = fork();
    if (m_child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(m_answer, STDOUT_FILENO);
        close(ends[0]);
        talkToService(window, until - toTakeItIn);
        _exit(0);
    }
    close(ends[1]);
    m_end = ends[0];
}

ServiceQuestion::~ServiceQuestion() {
    for (const int file : {m_answer, m_end}) {
        if (file >= 0) {
            close(file);
        }
    }
    if (m_child > 0) {
        kill(m_child, SIGKILL);
        waitpid(m_child, nullptr, 0);
    }
}

ServiceAnswer ServiceQuestion::take() {
    if (!m_asks) {
        return {.saidWhich = true, .calendars = {}};
    }
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(m_until - std::chrono::steady_clock::now());
    pollfd ended{m_end, 0, 0};
    if (m_end >= 0) {
        poll(&ended, 1, int(std::max<std::chrono::milliseconds>(left, leastWait).count()));
    }
    return ServiceAnswer::parse(answerBytes(m_answer));
}

} // namespace perchly
