#include "FolderWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstring>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto quietTime = 300ms;
constexpr auto longestTime = 2s;

constexpr unsigned gone = IN_DELETE_SELF | IN_MOVE_SELF;
constexpr unsigned ofEntries = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVE | IN_ATTRIB | gone;
constexpr unsigned onTheWay = IN_CREATE | IN_MOVED_TO | gone;

} // namespace

FolderWatch::FolderWatch(std::function<void()> changed, std::string ending)
    : m_descriptor(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    , m_changed(std::move(changed))
    , m_ending(std::move(ending))
    , m_notifier(m_descriptor, QSocketNotifier::Read) {
    m_notifier.setEnabled(m_descriptor >= 0);
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier,
                     [this] { readEvents(); });
    for (QTimer *timer : {&m_quiet, &m_limit}) {
        timer->setSingleShot(true);
        QObject::connect(timer, &QTimer::timeout, timer, [this] {
            m_quiet.stop();
            m_limit.stop();
            m_changed();
        });
    }
    m_quiet.setInterval(quietTime);
    m_limit.setInterval(longestTime);
}

FolderWatch::~FolderWatch() {
    m_notifier.setEnabled(false);
    if (m_descriptor >= 0) {
        close(m_descriptor);
    }
}

void FolderWatch::beginRound() {
    const std::scoped_lock lock(m_mutex);
    m_round.clear();
}

void FolderWatch::add(const std::string &folder) {
    std::string path = folder;
    std::string awaited;
    while (!path.empty()) {
        // What is watched for two reasons hears of both.
        const int watch =
            inotify_add_watch(m_descriptor, path.c_str(),
                              (awaited.empty() ? ofEntries : onTheWay) | IN_ONLYDIR | IN_MASK_ADD);
        if (watch >= 0) {
            const std::scoped_lock lock(m_mutex); // not while the kernel waits for a slow disk
            Watched &watched = m_round[watch];
            watched.folder |= awaited.empty();
            if (!awaited.empty()) {
                watched.awaited.insert(awaited);
            }
            m_watched[watch] = watched;
            return;
        }
        const std::size_t slash = path.rfind('/');
        if (slash == std::string::npos || path == "/") {
            return;
        }
        awaited = path.substr(slash + 1);
        path = slash == 0 ? "/" : path.substr(0, slash);
    }
}

void FolderWatch::endRound() {
    const std::scoped_lock lock(m_mutex);
    for (const auto &[watch, watched] : m_watched) {
        if (!m_round.contains(watch)) {
            inotify_rm_watch(m_descriptor, watch);
        }
    }
    m_watched = m_round;
}

void FolderWatch::readEvents() {
    alignas(inotify_event) std::array<char, 64UL * 1024> buffer{};
    bool any = false;
    ssize_t size = 0;
    while ((size = read(m_descriptor, buffer.data(), buffer.size())) > 0) {
        const std::scoped_lock lock(m_mutex);
        for (const char *at = buffer.data(); at < buffer.data() + size;) {
            inotify_event event = {};
            std::memcpy(&event, at, sizeof event);
            const std::string name(event.len > 0 ? at + sizeof event : "");
            any = matters(event.wd, event.mask, name) || any;
            at += sizeof event + event.len;
        }
    }
    if (any) {
        noteChange();
    }
}

bool FolderWatch::matters(int watch, unsigned mask, const std::string &name) {
    if ((mask & IN_Q_OVERFLOW) != 0) {
        return true;
    }
    const auto found = m_watched.find(watch);
    if (found == m_watched.end()) {
        return (mask & IN_IGNORED) == 0; // one that is being added
    }
    if ((mask & (gone | IN_IGNORED)) != 0) {
        return true;
    }
    const bool file = !name.starts_with('.') && name.ends_with(m_ending);
    const bool folder = (mask & IN_ISDIR) != 0 && !name.starts_with('.');
    // A link to a folder is no folder to the kernel, so whatever appears counts.
    const bool inside = folder || file || (mask & (IN_CREATE | IN_DELETE | IN_MOVE)) != 0;
    return (found->second.folder && inside) || found->second.awaited.contains(name);
}

void FolderWatch::noteChange() {
    m_quiet.start();
    if (!m_limit.isActive()) {
        m_limit.start();
    }
}

} // namespace perchly
