#include "StoredRecords.h"

namespace perchly {

QString identifierText(const QUuid &id) {
    return id.toString(QUuid::WithoutBraces).toUpper();
}

std::optional<QUuid> identifierFrom(const QJsonValue &value) {
    const QString text = value.toString();
    const QUuid id(text);
    return identifierText(id) == text.toUpper() ? std::optional(id) : std::nullopt;
}

} // namespace perchly
