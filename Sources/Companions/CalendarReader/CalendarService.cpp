#include "CalendarService.h"

#include "CalendarSource.h"

#include <QDateTime>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QFile>
#include <QSet>
#include <QStandardPaths>
#include <QTimeZone>

#include <algorithm>

namespace perchly {

using namespace Qt::StringLiterals;

namespace {

const QString prefix = u"org.gnome.evolution.dataserver."_s;
const QString root = u"/org/gnome/evolution/dataserver/"_s;
constexpr int timeout = 2000; // in milliseconds; the service may have to start
constexpr int maxAncestors = 10;

/// Blocks. Returns the answer, or an error.
QDBusMessage call(const QString &service, const QString &path, const QString &interface,
                  const QString &method, const QVariantList &arguments = {}) {
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    return QDBusConnection::sessionBus().call(message, QDBus::Block, timeout);
}

/// nullopt if the service does not answer.
std::optional<CalendarSources> knownSources() {
    using Interfaces = QMap<QString, QVariantMap>;
    const QDBusMessage answer =
        call(prefix + u"Sources5"_s, root + u"SourceManager"_s,
             u"org.freedesktop.DBus.ObjectManager"_s, u"GetManagedObjects"_s);
    if (answer.signature() != u"a{oa{sa{sv}}}") {
        return std::nullopt;
    }
    CalendarSources sources;
    const auto objects =
        qdbus_cast<QMap<QDBusObjectPath, Interfaces>>(answer.arguments().constFirst());
    for (const Interfaces &interfaces : objects) {
        const QVariantMap object = interfaces.value(prefix + u"Source"_s);
        addSource(sources, object.value(u"UID"_s).toString(),
                  object.value(u"Data"_s).toString().toUtf8());
    }
    return sources;
}

/// Whether the source and all its parents are shown.
bool isShown(const CalendarSources &sources, const CalendarSource &source, int depth = 0) {
    const auto parent = sources.constFind(source.parent);
    return source.isShown && (parent == sources.cend() || depth == maxAncestors ||
                              isShown(sources, *parent, depth + 1));
}

/// A query in the service's language. It must not evaluate rules: a thousand take seconds. It must
/// also find exceptions that were moved out of the window.
QString query(const TimeWindow &window) {
    const auto time = [](std::int64_t seconds) {
        return QDateTime::fromSecsSinceEpoch(seconds, QTimeZone::utc())
            .toString(u"'(make-time \"'yyyyMMdd'T'hhmmss'Z\")'"_s);
    };
    // One day more, as the service does not know the zone of floating times.
    return u"(or (has-recurrences?) (occur-in-time-range? %1 %2))"_s.arg(
        time(window.from - secondsPerDay), time(window.to + secondsPerDay));
}

} // namespace

void addServiceCalendars(CalendarList &list) {
    using Path = QStandardPaths;
    QFile accounts(Path::writableLocation(Path::GenericConfigLocation) +
                   u"/goa-1.0/accounts.conf"_s);
    const auto needsService = [](const CalendarSource &source) {
        return source.isShown && (source.isOnlineAccount || source.isOfService());
    };
    if (std::ranges::none_of(storedSources(), needsService) &&
        !(accounts.open(QIODevice::ReadOnly) &&
          accounts.readAll().contains("CalendarEnabled=true"))) {
        return;
    }
    list.serviceFolders.append(sourcesFolder());
    const auto sources = knownSources();
    list.isServiceMute = !sources;
    for (const CalendarSource &source : sources.value_or(CalendarSources())) {
        if (source.isOfService() && isShown(*sources, source)) {
            list.calendars.append(
                {source.name, sources->value(source.parent).name, u"service:"_s + source.uid});
            list.serviceFolders.append(Path::writableLocation(Path::GenericCacheLocation) +
                                       u"/evolution/calendar/"_s + source.uid);
        }
    }
}

bool addServiceCalendar(const QString &uid, Calendar &calendar) {
    const QDBusMessage opened = call(prefix + u"Calendar8"_s, root + u"CalendarFactory"_s,
                                     prefix + u"CalendarFactory"_s, u"OpenCalendar"_s, {uid});
    if (opened.signature() != u"ss") {
        return false;
    }
    const auto ask = [&opened](const QString &method, const QVariantList &arguments = {}) {
        return call(opened.arguments()[1].toString(), opened.arguments()[0].toString(),
                    prefix + u"Calendar"_s, method, arguments);
    };
    const auto addText = [&calendar](const QString &components) {
        calendar.addText("BEGIN:VCALENDAR\r\n" + components.toUtf8() + "\r\nEND:VCALENDAR\r\n");
    };
    if (ask(u"Open"_s).type() == QDBusMessage::ErrorMessage) {
        return false;
    }
    const QDBusMessage answer = ask(u"GetObjectList"_s, {query(calendar.window)});
    if (answer.signature() != u"as") {
        return false;
    }
    addText(answer.arguments().constFirst().toStringList().join(u"\r\n"_s));
    QSet<QString> zones;
    const auto insert = [](icalparameter *zone, void *all) {
        static_cast<QSet<QString> *>(all)->insert(QString::fromUtf8(icalparameter_get_tzid(zone)));
    };
    for (const auto &event : calendar.events) {
        icalcomponent_foreach_tzid(event.get(), insert, &zones);
    }
    for (const QString &zone : std::as_const(zones)) {
        const QDBusMessage described = ask(u"GetTimezone"_s, {zone});
        if (described.signature() == u"s") {
            addText(described.arguments().constFirst().toString());
        }
    }
    return true;
}

} // namespace perchly
