#include "PortalFileChooser.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMetaType>
#include <QFile>
#include <QGuiApplication>
#include <QWindow>

#include <utility>

namespace perchly {

namespace {

struct FilterRule {
    uint kind = 0; ///< 0 for a pattern of names
    QString pattern;
};

struct FileFilter {
    QString name;
    QList<FilterRule> rules;
};

QDBusArgument &operator<<(QDBusArgument &argument, const FilterRule &rule) {
    argument.beginStructure();
    argument << rule.kind << rule.pattern;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, FilterRule &rule) {
    argument.beginStructure();
    argument >> rule.kind >> rule.pattern;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const FileFilter &filter) {
    argument.beginStructure();
    argument << filter.name << filter.rules;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, FileFilter &filter) {
    argument.beginStructure();
    argument >> filter.name >> filter.rules;
    argument.endStructure();
    return argument;
}

QVariantMap optionsFor(const OpenPanel::Request &request) {
    QVariantMap options{{QStringLiteral("multiple"), true}};
    if (!request.confirmLabel.isEmpty()) {
        options.insert(QStringLiteral("accept_label"), request.confirmLabel);
    }
    if (!request.folder.isEmpty()) {
        options.insert(QStringLiteral("current_folder"),
                       QFile::encodeName(request.folder).append('\0'));
    }
    if (request.choice == OpenPanel::Choice::Applications) {
        qDBusRegisterMetaType<FilterRule>();
        qDBusRegisterMetaType<QList<FilterRule>>();
        qDBusRegisterMetaType<FileFilter>();
        qDBusRegisterMetaType<QList<FileFilter>>();
        const FileFilter filter{
            QCoreApplication::translate("OpenPanel", "Applications (*.desktop)"),
            {{0, QStringLiteral("*.desktop")}}};
        options.insert(QStringLiteral("filters"), QVariant::fromValue(QList{filter}));
    }
    return options;
}

} // namespace

std::unique_ptr<PortalRequest> chooseByPortal(const QDBusConnection &bus,
                                              const OpenPanel::Request &request,
                                              const QWindow *window, ChosenFiles completion) {
    const QString parent = window != nullptr && QGuiApplication::platformName() == u"xcb"
                               ? QStringLiteral("x11:%1").arg(window->winId(), 0, 16)
                               : QString();
    return std::make_unique<PortalRequest>(
        bus, QStringLiteral("FileChooser"), QStringLiteral("OpenFile"),
        QVariantList{parent, request.title}, optionsFor(request),
        [completion = std::move(completion)](PortalRequest::Response response,
                                             const QVariantMap &results) {
            if (response == PortalRequest::Unavailable) {
                completion(std::nullopt);
                return;
            }
            QList<QUrl> chosen;
            for (const QString &uri : results.value(QStringLiteral("uris")).toStringList()) {
                chosen.append(QUrl::fromEncoded(uri.toUtf8()));
            }
            completion(chosen);
        });
}

} // namespace perchly
