#include "ChildProcess.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <spawn.h>
#include <sstream>
#include <string>
#include <sys/eventfd.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

extern char **environ;

namespace perchly {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

class Descriptor {
public:
    explicit Descriptor(int number = -1)
        : m_number(number) {}
    ~Descriptor() { reset(); }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    [[nodiscard]] int number() const { return m_number; }
    void reset() {
        if (m_number >= 0) {
            close(m_number);
            m_number = -1;
        }
    }

private:
    int m_number;
};

/// The child starts as from a shell: with no signal blocked, and none ignored that we ignore.
class SpawnAttributes {
public:
    SpawnAttributes() {
        posix_spawnattr_init(&m_attributes);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&m_attributes, &signals);
        sigaddset(&signals, SIGPIPE);
        sigaddset(&signals, SIGALRM);
        sigaddset(&signals, SIGTERM);
        posix_spawnattr_setsigdefault(&m_attributes, &signals);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnAttributes() { posix_spawnattr_destroy(&m_attributes); }
    SpawnAttributes(const SpawnAttributes &) = delete;
    SpawnAttributes &operator=(const SpawnAttributes &) = delete;

    [[nodiscard]] const posix_spawnattr_t *get() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes{};
};

class SpawnActions {
public:
    explicit SpawnActions(int output) {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_adddup2(&m_actions, output, STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&m_actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    }
    ~SpawnActions() { posix_spawn_file_actions_destroy(&m_actions); }
    SpawnActions(const SpawnActions &) = delete;
    SpawnActions &operator=(const SpawnActions &) = delete;

    [[nodiscard]] const posix_spawn_file_actions_t *get() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions{};
};

pid_t spawn(const QString &program, const QStringList &arguments, int output) {
    std::vector<QByteArray> texts{QFile::encodeName(program)};
    for (const QString &argument : arguments) {
        texts.push_back(argument.toUtf8());
    }
    std::vector<char *> pointers;
    for (QByteArray &text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    const SpawnActions actions(output);
    const SpawnAttributes attributes;
    pid_t child = -1;
    return posix_spawn(&child, pointers.front(), actions.get(), attributes.get(), pointers.data(),
                       environ) == 0
               ? child
               : -1;
}

/// Readable once the child has ended.
int processDescriptor(pid_t child) {
    return int(syscall(SYS_pidfd_open, child, 0)); // the library's header is not made for C++
}

int waitingTime(std::optional<steady_clock::time_point> deadline) {
    if (!deadline) {
        return -1;
    }
    const auto left = std::chrono::ceil<milliseconds>(*deadline - steady_clock::now());
    return int(std::max(left, 0ms).count());
}

/// Reads what is there; false once there is too much.
bool drain(int descriptor, QByteArray &output, qsizetype most) {
    std::array<char, 16384> buffer{};
    ssize_t size = 0;
    while ((size = read(descriptor, buffer.data(), buffer.size())) > 0) {
        output.append(buffer.data(), size);
        if (output.size() > most) {
            return false;
        }
    }
    return true;
}

enum class Ending { Exited, GivenUp, Stopped };

Ending follow(int child, int pipe, std::optional<steady_clock::time_point> deadline, qsizetype most,
              const StopRequest &stop, QByteArray &output) {
    std::array<pollfd, 3> watched{pollfd{child, POLLIN, 0}, pollfd{stop.descriptor(), POLLIN, 0},
                                  pollfd{pipe, POLLIN, 0}};
    while (true) {
        const int ready = poll(watched.data(), watched.size(), waitingTime(deadline));
        if (ready < 0 && errno == EINTR) {
            continue;
        }
        if (ready <= 0) {
            return Ending::GivenUp;
        }
        if (watched[1].revents != 0) {
            return Ending::Stopped;
        }
        const bool exited =
            watched[0].revents != 0; // looked at first: its last words are there now
        if (watched[2].revents != 0 && !drain(pipe, output, most)) {
            return Ending::GivenUp;
        }
        if (exited) {
            return Ending::Exited;
        }
        if ((watched[2].revents & (POLLHUP | POLLERR)) != 0) {
            watched[2].fd = -1;
        }
    }
}

/// Also to what it has started, if it leads a group.
void signalAll(pid_t child, int number) {
    if (kill(-child, number) != 0) {
        kill(child, number);
    }
}

void end(pid_t child, int descriptor, milliseconds grace) {
    signalAll(child, SIGTERM);
    pollfd watched{descriptor, POLLIN, 0};
    if (poll(&watched, 1, int(grace.count())) <= 0) {
        signalAll(child, SIGKILL);
    }
}

/// Whether the process is in that group and has not ended. One that nobody has waited for yet is
/// still in it.
bool livesIn(pid_t group, const std::filesystem::path &process) {
    std::ifstream file(process / "stat");
    std::string line;
    std::getline(file, line);
    char state = 'Z';
    pid_t parent = 0;
    pid_t itsGroup = 0;
    std::istringstream fields(line.substr(line.rfind(')') + 1)); // its name may hold anything
    return fields >> state >> parent >> itsGroup && itsGroup == group && state != 'Z';
}

bool hasLiving(pid_t group) {
    std::error_code error;
    std::filesystem::directory_iterator each("/proc", error);
    for (; each != std::filesystem::directory_iterator(); each.increment(error)) {
        if (livesIn(group, each->path())) {
            return true;
        }
    }
    return false;
}

/// Ends what an ended child has left of a group that it led. The group keeps its number as long as
/// somebody is in it.
void endGroup(pid_t leader, steady_clock::time_point patience) {
    while (kill(-leader, 0) == 0 && hasLiving(leader)) {
        if (steady_clock::now() >= patience) {
            kill(-leader, SIGKILL);
            return;
        }
        std::this_thread::sleep_for(20ms);
    }
}

} // namespace

StopRequest::StopRequest()
    : m_descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

StopRequest::~StopRequest() {
    if (m_descriptor >= 0) {
        close(m_descriptor);
    }
}

void StopRequest::send() const {
    eventfd_write(m_descriptor, 1);
}

void StopRequest::sendEnd() {
    m_endsChild = true;
    send();
}

ChildResult runChild(const QString &program, const QStringList &arguments,
                     const ChildLimits &limits, const StopRequest &stop, OnStop onStop) {
    pollfd asked{stop.descriptor(), POLLIN, 0};
    if (poll(&asked, 1, 0) > 0) {
        return {}; // while it waited for a thread
    }
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return {};
    }
    const Descriptor reading(ends[0]);
    Descriptor writing(ends[1]);
    fcntl(reading.number(), F_SETFL, O_NONBLOCK);
    const pid_t child = spawn(program, arguments, writing.number());
    writing.reset();
    if (child < 0) {
        return {};
    }
    const Descriptor process(processDescriptor(child));
    const auto deadline =
        limits.time ? std::optional(steady_clock::now() + *limits.time) : std::nullopt;
    QByteArray output;
    const Ending ending = process.number() < 0 ? Ending::GivenUp
                                               : follow(process.number(), reading.number(),
                                                        deadline, limits.mostOutput, stop, output);
    if (ending == Ending::Stopped && onStop == OnStop::LeaveChild && !stop.endsChild()) {
        return {};
    }
    const auto patience = steady_clock::now() + limits.grace;
    if (ending != Ending::Exited) {
        end(child, process.number(), limits.grace);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (ending != Ending::Exited) {
        endGroup(child, patience);
    }
    if (ending != Ending::Exited || !WIFEXITED(status)) {
        return {};
    }
    return {WEXITSTATUS(status), output};
}

} // namespace perchly
