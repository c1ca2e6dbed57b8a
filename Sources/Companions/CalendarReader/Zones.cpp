#include "Zones.h"

#include <QDateTime>
#include <QFileInfo>

namespace perchly {

namespace {

QTimeZone systemZone(const QByteArray &name) {
    // QTimeZone also accepts strings that are not zone names.
    const QString file = QStringLiteral("/usr/share/zoneinfo/") + QString::fromUtf8(name);
    const bool isName = !name.isEmpty() && !name.startsWith('/') && !name.contains("..");
    return isName && QFileInfo(file).isFile() ? QTimeZone(name) : QTimeZone();
}

/// Finds a zone by its name or its end: programs write "/example.org/2026_1/Europe/Berlin".
QTimeZone namedZone(const QByteArray &name) {
    QTimeZone zone = systemZone(name);
    for (qsizetype slash = name.indexOf('/'); slash >= 0 && !zone.isValid();
         slash = name.indexOf('/', slash + 1)) {
        zone = systemZone(name.mid(slash + 1));
    }
    return zone.isValid() ? zone : systemZone(QTimeZone::windowsIdToDefaultIanaId(name));
}

} // namespace

int Zone::offsetAt(std::int64_t moment) const {
    if (m_own == nullptr) {
        return m_system.offsetFromUtc(QDateTime::fromSecsSinceEpoch(moment, QTimeZone::utc()));
    }
    icaltimetype time = icaltime_from_timet_with_zone(moment, 0, nullptr);
    return icaltimezone_get_utc_offset_of_utc_time(m_own, &time, nullptr);
}

std::int64_t Zone::toMoment(std::int64_t clock) const {
    const int before = offsetAt(clock - secondsPerDay);
    const int after = offsetAt(clock + secondsPerDay);
    const bool isAfter = offsetAt(clock - before) != before && offsetAt(clock - after) == after;
    return clock - (isAfter ? after : before);
}

const Zone &Zones::find(const std::string &name) {
    const auto found = m_zones.find(name);
    if (found != m_zones.end()) {
        return found->second;
    }
    const QTimeZone system = namedZone(QByteArray::fromStdString(name));
    const auto own = m_calendar.zones.find(name);
    const bool isOwn = !system.isValid() && own != m_calendar.zones.end();
    return m_zones
        .try_emplace(name, system.isValid() ? system : QTimeZone::systemTimeZone(),
                     isOwn ? own->second.get() : nullptr)
        .first->second;
}

} // namespace perchly
