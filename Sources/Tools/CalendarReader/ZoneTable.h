#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace perchly {

/// How a zone's clocks differ from universal time. Local times are counted in seconds as if they
/// were universal.
class Zone {
public:
    virtual ~Zone() = default;

    /// What the clocks show more than universal time at that moment, in seconds.
    [[nodiscard]] virtual int offsetAt(std::int64_t moment) const = 0;

    [[nodiscard]] std::int64_t toLocal(std::int64_t moment) const {
        return moment + offsetAt(moment);
    }
    /// Of a time that the clocks show twice, the first; one that they leave out is counted from
    /// before the gap.
    [[nodiscard]] std::int64_t toMoment(std::int64_t local) const;
};

/// Finds zones by the names that calendars give them: those of the system's zone files, with
/// whatever programs put before them, and those of Windows. What a calendar says of a zone itself
/// counts only where the name says nothing.
class ZoneTable {
public:
    /// The calendar's own zones, by name, as texts.
    explicit ZoneTable(std::map<std::string, std::string> definitions);
    ~ZoneTable();
    ZoneTable(ZoneTable &&) noexcept;
    ZoneTable &operator=(ZoneTable &&) noexcept;

    /// Whether a name says which zone it is, so that no definition is needed.
    [[nodiscard]] static bool isKnown(const std::string &name);

    [[nodiscard]] const Zone &universal();
    /// The zone of this machine, which also stands for one that nobody knows.
    [[nodiscard]] const Zone &local();
    [[nodiscard]] const Zone &find(const std::string &name);

private:
    std::map<std::string, std::string> m_definitions;
    std::map<std::string, std::unique_ptr<Zone>> m_zones;
};

} // namespace perchly
