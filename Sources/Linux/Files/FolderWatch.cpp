#include "FolderWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstring>
#include <filesystem>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto delay = 300ms; // changes usually come in groups

constexpr unsigned gone = IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED;
constexpr unsigned entryEvents = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVE | IN_ATTRIB;
constexpr unsigned parentEvents = IN_CREATE | IN_MOVED_TO;
constexpr unsigned always = IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR | IN_MASK_ADD;

} // namespace

FolderWatch::FolderWatch(std::function<void()> changed, std::string ending)
    : m_descriptor(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    , m_ending(std::move(ending))
    , m_notifier(m_descriptor, QSocketNotifier::Read) {
    m_notifier.setEnabled(m_descriptor >= 0);
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier,
                     [this] { readEvents(); });
    m_delay.setSingleShot(true);
    m_delay.setInterval(delay);
    QObject::connect(&m_delay, &QTimer::timeout, &m_delay, std::move(changed));
}

FolderWatch::~FolderWatch() {
    m_notifier.setEnabled(false);
    close(m_descriptor);
}

void FolderWatch::beginRound() {
    const std::scoped_lock lock(m_mutex);
    m_round.clear();
}

void FolderWatch::add(const std::string &folder) {
    std::filesystem::path path(folder);
    int watch = inotify_add_watch(m_descriptor, path.c_str(), entryEvents | always);
    while (watch < 0 && path.has_relative_path()) {
        path = path.parent_path();
        watch = inotify_add_watch(m_descriptor, path.c_str(), parentEvents | always);
    }
    const std::scoped_lock lock(m_mutex); // not held while the kernel waits for a slow disk
    m_round.insert(watch);
    m_watches.insert(watch);
}

void FolderWatch::endRound() {
    const std::scoped_lock lock(m_mutex);
    for (const int watch : m_watches) {
        if (!m_round.contains(watch)) {
            inotify_rm_watch(m_descriptor, watch);
        }
    }
    m_watches = m_round;
}

void FolderWatch::readEvents() {
    alignas(inotify_event) std::array<char, 64UL * 1024> buffer{};
    ssize_t size = 0;
    while ((size = read(m_descriptor, buffer.data(), buffer.size())) > 0) {
        const std::scoped_lock lock(m_mutex);
        for (const char *at = buffer.data(); at < buffer.data() + size;) {
            inotify_event event = {};
            std::memcpy(&event, at, sizeof event);
            const std::string name(event.len > 0 ? at + sizeof event : "");
            if (matters(event.wd, event.mask, name) && !m_delay.isActive()) {
                m_delay.start();
            }
            at += sizeof event + event.len;
        }
    }
}

bool FolderWatch::matters(int watch, unsigned mask, const std::string &name) const {
    if ((mask & IN_IGNORED) != 0 && !m_watches.contains(watch)) {
        return false; // removed by endRound()
    }
    return (mask & (gone | IN_Q_OVERFLOW | IN_ISDIR)) != 0 ||
           (!name.starts_with('.') && name.ends_with(m_ending));
}

} // namespace perchly
