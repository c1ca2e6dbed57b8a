#include "PreferencesBackup.h"

#include "WholeFile.h"

#include <algorithm>
#include <utility>

namespace perchly {

namespace {

constexpr qint64 pause = 400; // milliseconds
constexpr qint64 maxWait = 10'000;

} // namespace

PreferencesBackup::PreferencesBackup(const QString &file)
    : m_file(file) {
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { write(); });
    m_pool.setMaxThreadCount(1);
    m_pool.setExpiryTimeout(5000);
}

PreferencesBackup::~PreferencesBackup() {
    if (m_timer.isActive()) {
        write();
    }
}

QString PreferencesBackup::pathFor(const QString &file) {
    return file + QStringLiteral(".bak");
}

void PreferencesBackup::keep(const QByteArray &bytes) {
    m_newest = bytes;
    if (!m_timer.isActive()) {
        m_waiting.start();
    }
    m_timer.start(int(std::clamp(maxWait - m_waiting.elapsed(), qint64(0), pause)));
}

void PreferencesBackup::write() {
    m_pool.clear(); // what waits behind a slow disk is outdated
    m_pool.start([file = m_file, bytes = std::exchange(m_newest, {})] {
        // The backup is replaced only once the file itself is safe, so that one of the two always
        // is.
        if (wholefile::flush(wholefile::resolveLinks(file)).isEmpty()) {
            (void)wholefile::replace(PreferencesBackup::pathFor(file), bytes,
                                     wholefile::Durability::Disk);
        }
    });
}

} // namespace perchly
