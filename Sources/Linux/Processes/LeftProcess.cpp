#include "LeftProcess.h"

#include "ChildProcess.h"
#include "ProcessTime.h"

#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace perchly {

std::unique_ptr<LeftProcess> LeftProcess::find(int pid, quint64 startTime, Completion ended) {
    // Opened before the check, since the pid may be reused after it. The call is not pidfd_open(),
    // which glibc 2.36 declares without C linkage.
    const int descriptor = int(::syscall(SYS_pidfd_open, pid, 0));
    if (descriptor >= 0 && processStartTime(pid) == startTime) {
        return std::unique_ptr<LeftProcess>(
            new LeftProcess(pid, startTime, descriptor, std::move(ended)));
    }
    ::close(descriptor);
    return nullptr;
}

LeftProcess::LeftProcess(int pid, quint64 startTime, int descriptor, Completion ended)
    : m_pid(pid)
    , m_startTime(startTime)
    , m_descriptor(descriptor)
    , m_notifier(descriptor, QSocketNotifier::Read) {
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier,
                     [this, ended = std::move(ended)] {
                         m_notifier.setEnabled(false);
                         ended();
                     });
}

LeftProcess::~LeftProcess() {
    m_notifier.setEnabled(false);
    ::close(m_descriptor);
}

void LeftProcess::end(std::chrono::milliseconds grace) {
    if (processStartTime(m_pid) == m_startTime) {
        ChildProcess::endSession(m_pid, grace, &m_notifier);
    }
}

} // namespace perchly
