#include "DesktopUnit.h"

#include <QRegularExpression>

namespace perchly {

QString desktopUnitName(const QByteArray &groups, const QByteArray &ownGroups) {
    if (groups == ownGroups) {
        return {};
    }
    // app-gnome-NAME-123.scope or app-NAME@456.service. Dashes of the name are written as \x2d.
    const QRegularExpression unit(
        QStringLiteral("/app-(?:[^-/]+-)?([^-/@]+)(?:-\\d+\\.scope|(?:@[^/]*)?\\.service)$"));
    QString name = unit.match(QString::fromUtf8(groups).trimmed()).captured(1);
    return name.replace(QStringLiteral("\\x2d"), QStringLiteral("-"));
}

} // namespace perchly
