#include "ChildProcess.h"

#include "OwnEnvironment.h"

#include <QProcessEnvironment>

#include <csignal>
#include <unistd.h>
#include <utility>

namespace perchly {

namespace {

void signalSession(qint64 leader, int number) {
    if (leader > 0) { // 0 would mean this program
        ::kill(-pid_t(leader), number);
    }
}

} // namespace

ChildProcess::ChildProcess(const QString &program, const QStringList &arguments,
                           const ChildLimits &limits, OnStop onStop, Completion completion,
                           QObject *parent)
    : QObject(parent)
    , m_limits(limits)
    , m_onStop(onStop)
    , m_completion(std::move(completion)) {
    m_process->setProgram(program);
    m_process->setArguments(arguments);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QLatin1StringView(bareSurfaces));
    m_process->setProcessEnvironment(environment);
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardErrorFile(QProcess::nullDevice());
    if (limits.maxOutput == 0) {
        m_process->setStandardOutputFile(QProcess::nullDevice());
    }
#if QT_VERSION >= QT_VERSION_CHECK(6, 7, 0)
    m_process->setUnixProcessParameters(QProcess::UnixProcessFlag::CreateNewSession);
#else
    m_process->setChildProcessModifier([] { ::setsid(); });
#endif
    connect(m_process.get(), &QProcess::readyReadStandardOutput, this, &ChildProcess::readOutput);
    connect(m_process.get(), &QProcess::finished, this, &ChildProcess::finish);
    connect(m_process.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            finish();
        }
    });
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, &ChildProcess::end);
}

ChildProcess::~ChildProcess() {
    m_process->disconnect(this);
    if (m_state == State::Running && m_onStop == OnStop::LeaveChild) {
        // ~QProcess would kill the child.
        QProcess *left = m_process.release();
        connect(left, &QProcess::finished, left, &QObject::deleteLater);
        return;
    }
    if (!isRunning()) {
        return;
    }
    const qint64 session = m_process->processId();
    if (m_state == State::Running) {
        signalSession(session, SIGTERM);
    }
    m_process->waitForFinished(int(m_limits.grace.count()));
    signalSession(session, SIGKILL); // including processes that the child leaves behind
    m_process->waitForFinished();
}

void ChildProcess::start() {
    m_state = State::Running;
    if (m_limits.time) {
        m_limit.start(*m_limits.time);
    }
    m_process->start(QProcess::ReadOnly);
}

void ChildProcess::end() {
    if (m_state == State::Waiting) {
        m_state = State::Exited;
        QMetaObject::invokeMethod(this, &ChildProcess::finish, Qt::QueuedConnection);
    } else if (m_state == State::Running) {
        m_state = State::Ending;
        endSession(m_process->processId(), m_limits.grace, parent());
    }
}

void ChildProcess::endSession(qint64 leader, std::chrono::milliseconds grace,
                              const QObject *context) {
    signalSession(leader, SIGTERM);
    // This includes processes that the leader leaves behind.
    QTimer::singleShot(grace, context, [leader] { signalSession(leader, SIGKILL); });
}

void ChildProcess::abandon() {
    m_completion = {};
    if (m_onStop == OnStop::EndChild || m_state == State::Waiting) {
        end();
    }
}

void ChildProcess::readOutput() {
    const QByteArray output = m_process->readAllStandardOutput();
    if (m_state != State::Running) {
        return;
    }
    m_output += output;
    if (m_output.size() > m_limits.maxOutput) {
        end();
    }
}

void ChildProcess::finish() {
    ChildResult result;
    if (m_state == State::Running && m_process->error() != QProcess::FailedToStart &&
        m_process->exitStatus() == QProcess::NormalExit) {
        result = {m_process->exitCode(), m_output};
    }
    m_state = State::Exited;
    deleteLater();
    const Completion completion = std::exchange(m_completion, {});
    Q_EMIT exited();
    if (completion) {
        completion(result);
    }
}

} // namespace perchly
