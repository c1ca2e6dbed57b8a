#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>
#include <QUuid>

#include <optional>

namespace perchly {

/// A short text that is kept for copying again. Identified in lists by `id`.
struct Snippet {
    Q_GADGET
    Q_PROPERTY(QUuid id MEMBER id CONSTANT FINAL)
    Q_PROPERTY(QString text MEMBER text CONSTANT FINAL)
public:
    QUuid id;
    QString text;

    bool operator==(const Snippet &) const = default;
};

/// The stored form: a JSON array of objects in UTF-8, one for each snippet in order.
[[nodiscard]] QByteArray encodeSnippets(const QList<Snippet> &snippets);

/// Nothing when the document is not such an array, or one element lacks a field or has one of
/// another type. Unknown fields are ignored.
[[nodiscard]] std::optional<QList<Snippet>> decodeSnippets(const QByteArray &document);

} // namespace perchly
