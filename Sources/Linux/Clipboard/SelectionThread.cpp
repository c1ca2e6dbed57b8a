#include "SelectionThread.h"

#include <array>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace perchly {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

namespace {

constexpr auto handOverPatience = 1s;
constexpr auto endPatience = 2s;

int millisecondsUntil(std::optional<steady_clock::time_point> moment) {
    if (!moment) {
        return -1;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*moment - steady_clock::now());
    return static_cast<int>(std::max(left, 0ms).count());
}

} // namespace

SelectionThread::SelectionThread(SelectionLoop::Listener listener)
    : m_listener(std::move(listener))
    , m_wakeUp(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
    , m_thread([this] { run(); }) {}

SelectionThread::~SelectionThread() {
    m_isEnding = true;
    post([](SelectionLoop *) {});
    // A server that does not answer would hold the thread, and us, for ever.
    if (m_ended.get_future().wait_for(endPatience) == std::future_status::timeout) {
        ::shutdown(m_descriptor, SHUT_RDWR);
    }
    m_thread.join();
    close(m_wakeUp);
}

void SelectionThread::read(quint64 reading, const PasteboardRequest &request, quint64 copies) {
    post([this, reading, request, copies](SelectionLoop *loop) {
        if (loop) {
            loop->read(reading, request, copies);
        } else {
            m_listener.read(reading, {});
        }
    });
}

void SelectionThread::cancel(quint64 reading) {
    post([reading](SelectionLoop *loop) {
        if (loop) {
            loop->cancel(reading);
        }
    });
}

void SelectionThread::write(const QString &text, quint64 write) {
    post([this, text, write](SelectionLoop *) { offer(text, write); });
}

void SelectionThread::writeImage(const QByteArray &encoded, quint64 write) {
    post([this, encoded, write](SelectionLoop *loop) {
        if (const auto image = decodedImage(encoded)) {
            offer(*image, write);
        } else if (loop) {
            loop->empty(write);
        } else {
            m_memory.ours.reset();
            m_memory.write = write;
        }
    });
}

void SelectionThread::writeItems(const QList<QUrl> &urls, quint64 write) {
    post([this, urls, write](SelectionLoop *) { offer(selectionItems(urls), write); });
}

void SelectionThread::offer(SelectionContents contents, quint64 write) {
    if (m_loop) {
        m_loop->offer(std::move(contents), write);
    } else {
        m_memory.ours = std::move(contents);
        m_memory.ourWrite = write;
        m_memory.isWaiting = true;
    }
}

void SelectionThread::post(Command command) {
    {
        const std::lock_guard lock(m_mutex);
        m_commands.push_back(std::move(command));
    }
    eventfd_write(m_wakeUp, 1);
}

std::vector<SelectionThread::Command> SelectionThread::takeCommands() {
    eventfd_t count = 0;
    eventfd_read(m_wakeUp, &count);
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_commands, {});
}

void SelectionThread::run() {
    connect();
    while (true) {
        for (const Command &command : takeCommands()) {
            command(m_loop.get());
        }
        if (m_isEnding) {
            break;
        }
        if (m_nextAttempt && *m_nextAttempt <= steady_clock::now()) {
            connect();
        }
        if (m_loop) {
            m_loop->turn();
            followLoss();
        }
        wait();
    }
    handOver();
    m_descriptor = -1;
    m_loop.reset();
    m_ended.set_value();
}

void SelectionThread::connect() {
    m_nextAttempt.reset();
    int screenNumber = 0;
    if (XConnectionPointer connection = connectToXServer({}, &screenNumber)) {
        m_descriptor = xcb_get_file_descriptor(connection.get());
        m_loop = std::make_unique<SelectionLoop>(
            std::make_unique<SelectionConnection>(std::move(connection), screenNumber), m_listener,
            std::exchange(m_memory, {}));
    }
    if (m_loop && m_loop->isAlive()) {
        m_failures = 0;
    } else if (const auto delay = delayOfAttempt(m_failures++)) {
        m_nextAttempt = steady_clock::now() + *delay;
    }
    followLoss();
}

void SelectionThread::followLoss() {
    if (!m_loop || m_loop->isAlive()) {
        return;
    }
    m_memory = m_loop->end();
    m_descriptor = -1;
    m_loop.reset();
    if (m_failures == 0) {
        m_nextAttempt = steady_clock::now() + *delayOfAttempt(0);
    }
}

void SelectionThread::handOver() {
    if (!m_loop) {
        return;
    }
    m_loop->handOver();
    const auto deadline = steady_clock::now() + handOverPatience;
    while (!m_loop->isHandedOver() && m_loop->isAlive() && steady_clock::now() < deadline) {
        m_loop->turn();
        pollfd watched{m_loop->descriptor(), POLLIN, 0};
        poll(&watched, 1, millisecondsUntil(deadline));
    }
}

void SelectionThread::wait() const {
    std::array<pollfd, 2> watched{pollfd{m_wakeUp, POLLIN, 0},
                                  pollfd{m_loop ? m_loop->descriptor() : -1, POLLIN, 0}};
    poll(watched.data(), watched.size(),
         millisecondsUntil(m_loop ? m_loop->nextDeadline() : m_nextAttempt));
}

} // namespace perchly
