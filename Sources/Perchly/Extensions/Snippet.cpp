#include "Snippet.h"

#include "StoredRecords.h"

#include <QJsonObject>

namespace perchly {

namespace {

constexpr QLatin1StringView snippetId("id");
constexpr QLatin1StringView snippetText("text");

QJsonValue encodedSnippet(const Snippet &snippet) {
    return QJsonObject{{snippetId, identifierText(snippet.id)}, {snippetText, snippet.text}};
}

std::optional<Snippet> decodedSnippet(const QJsonValue &value) {
    const QJsonObject object = value.toObject();
    const auto id = identifierFrom(object.value(snippetId));
    const QJsonValue text = object.value(snippetText);
    return id && text.isString() ? std::optional(Snippet{*id, text.toString()}) : std::nullopt;
}

} // namespace

QByteArray encodeSnippets(const QList<Snippet> &snippets) {
    return encodeRecords(snippets, encodedSnippet);
}

std::optional<QList<Snippet>> decodeSnippets(const QByteArray &document) {
    return decodeRecords(document, decodedSnippet);
}

} // namespace perchly
