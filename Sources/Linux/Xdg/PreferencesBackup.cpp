#include "PreferencesBackup.h"

#include "WholeFile.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

namespace perchly {

using namespace std::chrono_literals;
using Time = std::chrono::steady_clock;

namespace {

constexpr auto pause = 400ms;
constexpr auto longestWait = 10s;

} // namespace

struct PreferencesBackup::Queue {
    std::mutex mutex;
    std::condition_variable closed;
    std::optional<QByteArray> newest;
    Time::time_point lastSet;
    bool working = false;
    bool closing = false;

    /// Waits for a pause. Nothing when there is nothing left to do.
    std::optional<QByteArray> next() {
        std::unique_lock lock(mutex);
        const auto latest = Time::now() + longestWait;
        while (newest && !closing && Time::now() < std::min(lastSet + pause, latest)) {
            closed.wait_until(lock, std::min(lastSet + pause, latest));
        }
        working = newest.has_value();
        return std::exchange(newest, std::nullopt);
    }
};

PreferencesBackup::PreferencesBackup(const QString &file)
    : m_file(file)
    , m_queue(std::make_shared<Queue>()) {
    m_pool.setMaxThreadCount(1);
    m_pool.setExpiryTimeout(5000);
}

PreferencesBackup::~PreferencesBackup() {
    const std::scoped_lock lock(m_queue->mutex);
    m_queue->closing = true;
    m_queue->closed.notify_all();
}

QString PreferencesBackup::pathFor(const QString &file) {
    return file + QStringLiteral(".bak");
}

void PreferencesBackup::keep(const QByteArray &bytes) {
    {
        const std::scoped_lock lock(m_queue->mutex);
        m_queue->newest = bytes;
        m_queue->lastSet = Time::now();
        if (std::exchange(m_queue->working, true)) {
            return;
        }
    }
    m_pool.start([file = m_file, queue = m_queue] {
        while (const auto generation = queue->next()) {
            // The backup is replaced only once the file itself is safe, so that one of the two
            // always is.
            const QString target = wholefile::resolveLinks(file);
            if (wholefile::flush(target).isEmpty()) {
                (void)wholefile::replace(pathFor(file), *generation, wholefile::Durability::Disk);
            }
        }
    });
}

} // namespace perchly
