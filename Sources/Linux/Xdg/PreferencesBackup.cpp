#include "PreferencesBackup.h"

#include "WholeFile.h"

#include <mutex>
#include <optional>

namespace perchly {

struct PreferencesBackup::Queue {
    std::mutex mutex;
    std::optional<QByteArray> newest;
    bool working = false;

    std::optional<QByteArray> next() {
        const std::scoped_lock lock(mutex);
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

PreferencesBackup::~PreferencesBackup() = default;

QString PreferencesBackup::pathFor(const QString &file) {
    return file + QStringLiteral(".bak");
}

void PreferencesBackup::keep(const QByteArray &bytes) {
    {
        const std::scoped_lock lock(m_queue->mutex);
        m_queue->newest = bytes;
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
