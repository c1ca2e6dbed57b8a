#include "ReaderOutput.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace perchly::readeroutput {

namespace {

QByteArray line(const QJsonObject &object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

} // namespace

QByteArray calendar(const QString &name, const QString &place) {
    return line({{QStringLiteral("calendar"), name}, {QStringLiteral("place"), place}});
}

QByteArray folder(const QString &path) {
    return line({{QStringLiteral("folder"), path}});
}

QByteArray serviceFolder(const QString &path) {
    return line({{QStringLiteral("serviceFolder"), path}});
}

QByteArray muteService() {
    return line({{QStringLiteral("service"), QStringLiteral("mute")}});
}

QByteArray file(const QString &path, bool torn) {
    return line({{QStringLiteral("file"), path}, {QStringLiteral("torn"), torn}});
}

QByteArray event(const Occurrence &occurrence, std::size_t fileNumber) {
    const Event &event = *occurrence.event;
    QJsonObject object{
        {QStringLiteral("event"), QString::fromStdString(occurrence.identifier)},
        {QStringLiteral("in"), qint64(fileNumber)},
        {QStringLiteral("start"), qint64(occurrence.start)},
        {QStringLiteral("end"), qint64(occurrence.end)},
        {QStringLiteral("allDay"), event.start.isDay},
    };
    const auto text = [&object](const char *name, const QString &value) {
        if (!value.isNull()) {
            object.insert(QLatin1StringView(name), value);
        }
    };
    text("title", event.title);
    text("url", event.url);
    text("location", event.location);
    text("notes", event.notes);
    return line(object);
}

QByteArray end(bool all) {
    return line({{QStringLiteral("end"), all ? QStringLiteral("all") : QStringLiteral("some")}});
}

} // namespace perchly::readeroutput
