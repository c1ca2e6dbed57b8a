#include "ZoneTable.h"

#include <QDateTime>
#include <QFileInfo>
#include <QTimeZone>

#include <libical/ical.h>
#include <optional>

namespace perchly {

namespace {

class SystemZone : public Zone {
public:
    explicit SystemZone(const QTimeZone &zone)
        : m_zone(zone) {}

    [[nodiscard]] int offsetAt(std::int64_t moment) const override {
        return m_zone.offsetFromUtc(QDateTime::fromSecsSinceEpoch(moment, QTimeZone::utc()));
    }

private:
    QTimeZone m_zone;
};

class DefinedZone : public Zone {
public:
    explicit DefinedZone(icaltimezone *zone)
        : m_zone(zone) {}
    ~DefinedZone() override { icaltimezone_free(m_zone, 1); }

    [[nodiscard]] int offsetAt(std::int64_t moment) const override {
        icaltimetype time = icaltime_from_timet_with_zone(moment, 0, nullptr);
        return icaltimezone_get_utc_offset_of_utc_time(m_zone, &time, nullptr);
    }

private:
    icaltimezone *m_zone;
};

std::optional<QTimeZone> systemZone(const QByteArray &name) {
    if (name.isEmpty() || name.startsWith('/') || name.contains("..")) {
        return std::nullopt;
    }
    if (name.compare("utc", Qt::CaseInsensitive) == 0) {
        return QTimeZone::utc();
    }
    // The toolkit also takes any word for a zone of its own making.
    const QString file = QStringLiteral("/usr/share/zoneinfo/") + QString::fromUtf8(name);
    const QTimeZone zone = QFileInfo(file).isFile() ? QTimeZone(name) : QTimeZone();
    return zone.isValid() ? std::optional(zone) : std::nullopt;
}

/// By its name, or by the end of it that is one.
std::optional<QTimeZone> namedZone(const QByteArray &name) {
    for (qsizetype at = 0; at >= 0 && at < name.size();) {
        if (auto zone = systemZone(name.mid(at))) {
            return zone;
        }
        const qsizetype slash = name.indexOf('/', at);
        at = slash < 0 ? -1 : slash + 1;
    }
    return systemZone(QTimeZone::windowsIdToDefaultIanaId(name));
}

QByteArray location(const std::string &definition) {
    const QByteArray text = QByteArray::fromStdString(definition);
    const QByteArray key = "\nX-LIC-LOCATION:";
    const qsizetype at = text.indexOf(key);
    const qsizetype start = at + key.size();
    return at < 0 ? QByteArray() : text.mid(start, text.indexOf('\n', start) - start).trimmed();
}

std::unique_ptr<Zone> definedZone(const std::string &definition) {
    if (const auto zone = namedZone(location(definition))) {
        return std::make_unique<SystemZone>(*zone);
    }
    icalcomponent *component = icalcomponent_new_from_string(definition.c_str());
    icaltimezone *zone = icaltimezone_new();
    if (component != nullptr && icaltimezone_set_component(zone, component) != 0) {
        return std::make_unique<DefinedZone>(zone);
    }
    if (component != nullptr) {
        icalcomponent_free(component);
    }
    icaltimezone_free(zone, 1);
    return nullptr;
}

} // namespace

std::int64_t Zone::toMoment(std::int64_t local) const {
    constexpr std::int64_t day = 86400;
    const int before = offsetAt(local - day);
    const int after = offsetAt(local + day);
    if (before == after || offsetAt(local - before) == before || offsetAt(local - after) != after) {
        return local - before;
    }
    return local - after;
}

ZoneTable::ZoneTable(std::map<std::string, std::string> definitions)
    : m_definitions(std::move(definitions)) {}

ZoneTable::~ZoneTable() = default;
ZoneTable::ZoneTable(ZoneTable &&) noexcept = default;
ZoneTable &ZoneTable::operator=(ZoneTable &&) noexcept = default;

bool ZoneTable::isKnown(const std::string &name) {
    return namedZone(QByteArray::fromStdString(name)).has_value();
}

const Zone &ZoneTable::universal() {
    return find("UTC");
}

const Zone &ZoneTable::local() {
    return find({});
}

const Zone &ZoneTable::find(const std::string &name) {
    std::unique_ptr<Zone> &found = m_zones[name];
    if (!found) {
        const auto system = namedZone(QByteArray::fromStdString(name));
        const auto definition = m_definitions.find(name);
        if (system) {
            found = std::make_unique<SystemZone>(*system);
        } else if (definition != m_definitions.end()) {
            found = definedZone(definition->second);
        }
        if (!found) {
            found = std::make_unique<SystemZone>(QTimeZone::systemTimeZone());
        }
    }
    return *found;
}

} // namespace perchly
