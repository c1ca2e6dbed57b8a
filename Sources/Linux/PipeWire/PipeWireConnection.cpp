#include "PipeWireConnection.h"

#include <QDeadlineTimer>

#include <cerrno>
#include <utility>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr int maxAttempts = 7;

QString socketFolder() {
    for (const char *name : {"PIPEWIRE_RUNTIME_DIR", "XDG_RUNTIME_DIR"}) {
        if (const QString folder = qEnvironmentVariable(name); !folder.isEmpty()) {
            return folder;
        }
    }
    return {};
}

} // namespace

struct PipeWireConnection::Callbacks {
    static void done(void *data, std::uint32_t id, int number) {
        auto &self = *static_cast<PipeWireConnection *>(data);
        if (id == PW_ID_CORE) {
            self.m_answered = number;
            Q_EMIT self.answered(number);
        }
    }

    /// All other errors concern removed objects.
    static void error(void *data, std::uint32_t id, int, int result, const char *) {
        auto &self = *static_cast<PipeWireConnection *>(data);
        if (id == PW_ID_CORE && result == -EPIPE) {
            self.m_isLost = true;
        }
    }

    static constexpr pw_core_events events{
        .version = PW_VERSION_CORE_EVENTS, .done = done, .error = error};
};

PipeWireConnection::PipeWireConnection(QObject *parent)
    : QObject(parent) {
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &PipeWireConnection::tryToConnect);
    connect(&m_making, &QFutureWatcherBase::finished, this, &PipeWireConnection::takeContext);
    connect(&m_folder, &QFileSystemWatcher::directoryChanged, this, &PipeWireConnection::lookAgain);
}

PipeWireConnection::~PipeWireConnection() {
    m_readable.reset();
    if (m_loop) {
        pw_loop_leave(m_loop.get());
    }
}

void PipeWireConnection::start() {
    const QString folder = socketFolder();
    if (!folder.isEmpty()) {
        m_folder.addPath(folder);
    }
    tryToConnect();
}

void PipeWireConnection::lookAgain() {
    if (!m_core) {
        m_attempts = 0;
        m_retry.start(0);
    }
}

void PipeWireConnection::makeContext() {
    if (!std::exchange(m_isMaking, true)) {
        m_making.setFuture(makePipeWireContext());
    }
}

void PipeWireConnection::takeContext() {
    m_isMaking = false;
    QFuture<PipeWireContext> future = m_making.future();
    PipeWireContext made = future.resultCount() > 0 ? future.takeResult() : PipeWireContext();
    if (!made.context) {
        tryLater();
        return;
    }
    m_loop = std::move(made.loop);
    m_context = std::move(made.context);
    pw_loop_enter(m_loop.get());
    m_readable =
        std::make_unique<QSocketNotifier>(pw_loop_get_fd(m_loop.get()), QSocketNotifier::Read);
    connect(m_readable.get(), &QSocketNotifier::activated, this, &PipeWireConnection::serve);
    tryToConnect();
}

void PipeWireConnection::tryLater() {
    if (++m_attempts < maxAttempts) {
        m_retry.start(25ms * (1 << m_attempts));
    }
}

void PipeWireConnection::tryToConnect() {
    if (m_core) {
        return;
    }
    if (!m_context) {
        makeContext();
        return;
    }
    m_core.reset(pw_context_connect(m_context.get(), nullptr, 0));
    if (!m_core) {
        tryLater();
        return;
    }
    m_isLost = false;
    m_attempts = 0;
    pw_core_add_listener(m_core.get(), &m_listener, &Callbacks::events, this);
    Q_EMIT connected();
}

void PipeWireConnection::serve() {
    if (!m_isServing) {
        iterate(0ms);
        dropLostServer();
    }
}

void PipeWireConnection::iterate(std::chrono::milliseconds limit) {
    m_isServing = true;
    pw_loop_iterate(m_loop.get(), int(limit.count()));
    m_isServing = false;
}

void PipeWireConnection::dropLostServer() {
    if (!m_isLost) {
        return;
    }
    m_isLost = false;
    Q_EMIT lost();
    spa_hook_remove(&m_listener);
    m_core.reset();
    m_attempts = 0;
    m_retry.start(0);
}

void PipeWireConnection::settle(std::chrono::milliseconds limit) {
    Q_ASSERT(!m_isServing);
    const QDeadlineTimer deadline(limit);
    const int number = ask();
    while (m_core && !m_isLost && m_answered != number && !deadline.hasExpired()) {
        iterate(std::max(1ms, std::chrono::milliseconds(deadline.remainingTime())));
    }
}

void PipeWireConnection::passRealTimeThread() {
    const auto nothing = [](spa_loop *, bool, std::uint32_t, const void *, std::size_t, void *) {
        return 0;
    };
    if (m_context) {
        pw_data_loop_invoke(pw_context_get_data_loop(m_context.get()), nothing, 0, nullptr, 0, true,
                            nullptr);
    }
}

int PipeWireConnection::ask() {
    return m_core ? pw_core_sync(m_core.get(), PW_ID_CORE, 0) : 0;
}

} // namespace perchly
