#include "TerminationSignals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <sys/eventfd.h>
#include <unistd.h>

namespace perchly {

namespace {

constexpr std::array handled{SIGTERM, SIGINT, SIGHUP};

// A signal handler can reach only globals.
volatile std::sig_atomic_t eventFile = -1;

void handle(int) {
    const int error = errno;
    const eventfd_t one = 1;
    [[maybe_unused]] const ssize_t written = write(int(eventFile), &one, sizeof one);
    errno = error;
}

void setHandler(int number, void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    // The next signal has its default action, so that it ends a program that hangs.
    action.sa_flags = SA_RESTART | int(SA_RESETHAND);
    sigemptyset(&action.sa_mask);
    struct sigaction before = {};
    sigaction(number, nullptr, &before);
    // Do not catch a signal that the parent ignores, such as SIGHUP under nohup.
    if (before.sa_handler != SIG_IGN) { // NOLINT: a system macro
        sigaction(number, &action, nullptr);
    }
}

} // namespace

TerminationSignals::TerminationSignals(QObject *parent)
    : QObject(parent) {
    const int file = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    eventFile = file;
    auto *notifier = new QSocketNotifier(file, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, file] {
        eventfd_t count = 0;
        if (eventfd_read(file, &count) == 0) {
            Q_EMIT requested();
        }
    });
    for (const int number : handled) {
        setHandler(number, handle);
    }
}

TerminationSignals::~TerminationSignals() {
    for (const int number : handled) {
        setHandler(number, SIG_DFL);
    }
    close(int(eventFile));
    eventFile = -1;
}

} // namespace perchly
