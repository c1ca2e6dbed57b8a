#include "Snippet.h"

#include "StoredRecords.h"

#include <QJsonObject>

namespace perchly {

namespace {

constexpr QLatin1StringView idField("id");
constexpr QLatin1StringView textField("text");

QJsonValue encoded(const Snippet &snippet) {
    return QJsonObject{{idField, identifierText(snippet.id)}, {textField, snippet.text}};
}

std::optional<Snippet> decoded(const QJsonValue &value) {
    const QJsonObject object = value.toObject();
    const auto id = identifierFrom(object.value(idField));
    const QJsonValue text = object.value(textField);
    return id && text.isString() ? std::optional(Snippet{*id, text.toString()}) : std::nullopt;
}

} // namespace

QByteArray encodeSnippets(const QList<Snippet> &snippets) {
    return encodeRecords(snippets, encoded);
}

std::optional<QList<Snippet>> decodeSnippets(const QByteArray &document) {
    return decodeRecords(document, decoded);
}

} // namespace perchly
