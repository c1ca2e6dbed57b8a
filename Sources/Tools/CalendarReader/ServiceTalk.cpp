#include "ServiceTalk.h"

#include "BusCalls.h"
#include "GuardedLoop.h"
#include "ServiceAnswer.h"
#include "ZoneTable.h"

#include <QDateTime>
#include <QSet>
#include <QTimeZone>

#include <algorithm>
#include <cstring>
#include <map>
#include <systemd/sd-bus.h>

namespace perchly {

namespace {

constexpr const char *sourcesService = "org.gnome.evolution.dataserver.Sources5";
constexpr const char *sourcesPath = "/org/gnome/evolution/dataserver/SourceManager";
constexpr const char *sourceInterface = "org.gnome.evolution.dataserver.Source";
constexpr const char *calendarsService = "org.gnome.evolution.dataserver.Calendar8";
constexpr const char *factoryPath = "/org/gnome/evolution/dataserver/CalendarFactory";
constexpr const char *factoryInterface = "org.gnome.evolution.dataserver.CalendarFactory";
constexpr const char *calendarInterface = "org.gnome.evolution.dataserver.Calendar";

constexpr qsizetype mostText = qsizetype(32) << 20; ///< of all calendars together
constexpr qsizetype mostZones = 50;                 ///< of a calendar, that it must describe

/// Goes through the entries of a dictionary with such a signature; `read` takes a key and its
/// value. False for anything else than that.
template <class Read>
bool forEachEntry(sd_bus_message *message, const char *types, Read read) {
    const std::string entry = '{' + std::string(types) + '}';
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, entry.c_str()) < 0) {
        return false;
    }
    int entered = 0;
    while ((entered = sd_bus_message_enter_container(message, SD_BUS_TYPE_DICT_ENTRY, types)) > 0) {
        const char *key = nullptr;
        if (sd_bus_message_read_basic(message, types[0], &key) < 0 || !read(std::string(key)) ||
            sd_bus_message_exit_container(message) < 0) {
            return false;
        }
    }
    return entered == 0 && sd_bus_message_exit_container(message) >= 0;
}

/// The strings of an array. Nothing when there is anything else, or more than there may be.
std::optional<QByteArray> joinedStrings(sd_bus_message *message, qsizetype most) {
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "s") < 0) {
        return std::nullopt;
    }
    QByteArray joined;
    const char *text = nullptr;
    int got = 0;
    while ((got = sd_bus_message_read_basic(message, SD_BUS_TYPE_STRING, &text)) > 0) {
        const QByteArrayView view(text);
        if (joined.size() + view.size() > most) {
            return std::nullopt;
        }
        joined.append(view).append("\r\n");
    }
    return got == 0 ? std::optional(joined) : std::nullopt;
}

/// An expression of the service's own language. Everything that recurs, and exceptions wherever
/// they are: one that was moved out of the window says that it is not in it.
std::string query(const TimeWindow &window) {
    const auto time = [](std::int64_t seconds) {
        return "(make-time \"" +
               QDateTime::fromSecsSinceEpoch(seconds, QTimeZone::utc())
                   .toString(QStringLiteral("yyyyMMdd'T'hhmmss'Z'"))
                   .toStdString() +
               "\")";
    };
    // A day more, as floating times are not the service's to place.
    return "(or (has-recurrences?) (occur-in-time-range? " + time(window.from - secondsPerDay) +
           ' ' + time(window.to + secondsPerDay) + "))";
}

/// The zones that are named in the text and that only the calendar itself can know.
QSet<QByteArray> strangeZones(QByteArray text) {
    text.replace("\r\n ", "");
    const QByteArray key = ";TZID=";
    QSet<QByteArray> all;
    for (qsizetype at = text.indexOf(key); at >= 0; at = text.indexOf(key, at)) {
        at += key.size();
        const bool quoted = text.mid(at, 1) == "\"";
        const qsizetype start = quoted ? at + 1 : at;
        qsizetype end = start;
        while (end < text.size() &&
               (quoted ? text[end] != '"' : text[end] != ':' && text[end] != ';')) {
            ++end;
        }
        all.insert(text.mid(start, end - start));
        at = end;
    }
    all.removeIf([](const QByteArray &name) { return ZoneTable::isKnown(name.toStdString()); });
    return all;
}

class Talk {
public:
    Talk(const std::optional<TimeWindow> &window, std::chrono::steady_clock::time_point until)
        : m_query(window ? query(*window) : std::string())
        , m_calls(until) {}

    void run() {
        if (!m_calls.open()) {
            return;
        }
        m_calls.call({sourcesService, sourcesPath, "org.freedesktop.DBus.ObjectManager",
                      "GetManagedObjects"},
                     nullptr, [this](sd_bus_message *answer) { takeSources(answer); });
        m_calls.finish();
        // Rather without its own zones than not at all.
        for (auto &[number, found] : m_found) {
            write(number, found);
        }
    }

private:
    struct Found {
        QByteArray events;
        QByteArray zones;
        qsizetype zonesToCome = 0;
        bool written = false;
    };

    void takeSources(sd_bus_message *answer) {
        QList<CalendarSource> sources;
        const bool read = forEachEntry(answer, "oa{sa{sv}}", [&](const std::string &) {
            return forEachEntry(answer, "sa{sv}", [&](const std::string &interface) {
                return interface == sourceInterface ? takeSource(answer, sources)
                                                    : sd_bus_message_skip(answer, "a{sv}") >= 0;
            });
        });
        if (!read) {
            return;
        }
        const QList<ServiceCalendar> calendars = serviceCalendars(sources);
        writeOut(ServiceAnswer::which(calendars));
        for (qsizetype number = 0; number < calendars.size() && !m_query.empty(); ++number) {
            ask(number, calendars[number].uid.toUtf8());
        }
    }

    static bool takeSource(sd_bus_message *answer, QList<CalendarSource> &sources) {
        const char *uid = nullptr;
        const char *data = nullptr;
        const bool read = forEachEntry(answer, "sv", [&](const std::string &property) {
            const char **wanted = property == "UID" ? &uid : property == "Data" ? &data : nullptr;
            return (wanted == nullptr ? sd_bus_message_skip(answer, "v")
                                      : sd_bus_message_read(answer, "v", "s", wanted)) >= 0;
        });
        if (read && uid != nullptr && data != nullptr) {
            if (const auto source = parseSource(QString::fromUtf8(uid), data)) {
                sources.append(*source);
            }
        }
        return read;
    }

    void ask(qsizetype number, const QByteArray &uid) {
        const auto opened = [this, number](sd_bus_message *answer) {
            const char *path = nullptr;
            const char *service = nullptr;
            if (sd_bus_message_read(answer, "ss", &path, &service) > 0) {
                open(number, {service, path, calendarInterface, "Open"});
            }
        };
        m_calls.call({calendarsService, factoryPath, factoryInterface, "OpenCalendar"},
                     uid.constData(), opened);
    }

    void open(qsizetype number, BusMethod method) {
        const BusMethod opening = method;
        m_calls.call(opening, nullptr, [this, number, method](sd_bus_message *) mutable {
            method.name = "GetObjectList";
            m_calls.call(method, m_query.c_str(), [this, number, method](sd_bus_message *answer) {
                takeEvents(number, method, answer);
            });
        });
    }

    void takeEvents(qsizetype number, BusMethod method, sd_bus_message *answer) {
        const auto events = joinedStrings(answer, mostText - m_size);
        if (!events) {
            return;
        }
        m_size += events->size();
        Found &found = m_found[number];
        found.events = *events;
        method.name = "GetTimezone";
        const QSet<QByteArray> zones = strangeZones(*events);
        found.zonesToCome = std::min(zones.size(), mostZones);
        qsizetype asked = 0;
        for (const QByteArray &zone : zones) {
            if (asked++ < mostZones) {
                m_calls.call(method, zone.constData(), [this, number](sd_bus_message *described) {
                    takeZone(number, described);
                });
            }
        }
        if (found.zonesToCome == 0) {
            write(number, found);
        }
    }

    void takeZone(qsizetype number, sd_bus_message *answer) {
        Found &found = m_found[number];
        const char *text = nullptr;
        if (sd_bus_message_read(answer, "s", &text) > 0 && m_size < mostText) {
            found.zones.append(text).append("\r\n");
            m_size += qsizetype(std::strlen(text));
        }
        if (--found.zonesToCome == 0) {
            write(number, found);
        }
    }

    static void write(qsizetype number, Found &found) {
        if (!found.written) {
            found.written = true;
            writeOut(ServiceAnswer::textOf(number, "BEGIN:VCALENDAR\r\n" + found.zones +
                                                       found.events + "END:VCALENDAR\r\n"));
        }
    }

    const std::string m_query; ///< empty if the calendars' names are enough
    std::map<qsizetype, Found> m_found;
    qsizetype m_size = 0;
    BusCalls m_calls;
};

} // namespace

void talkToService(const std::optional<TimeWindow> &window,
                   std::chrono::steady_clock::time_point until) {
    Talk(window, until).run();
}

} // namespace perchly
