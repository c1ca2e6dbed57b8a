#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QUuid>

#include <optional>

namespace perchly {

/// Applications, files and links that are opened together. Identified in lists by `id`; names need
/// not be unique.
struct LaunchGroup {
    Q_GADGET
    Q_PROPERTY(QUuid id MEMBER id CONSTANT FINAL)
    Q_PROPERTY(QString name MEMBER name CONSTANT FINAL)
    Q_PROPERTY(QList<QUrl> urls MEMBER urls CONSTANT FINAL)
public:
    QUuid id;
    QString name;
    QList<QUrl> urls; ///< an application is its desktop entry's file; absolute, no two equal

    bool operator==(const LaunchGroup &) const = default;
};

/// The stored form: a JSON array of objects in UTF-8, one for each group in order.
[[nodiscard]] QByteArray encodeGroups(const QList<LaunchGroup> &groups);

/// Nothing when the document is not such an array, or one element lacks a field or has one of
/// another type. Unknown fields are ignored.
[[nodiscard]] std::optional<QList<LaunchGroup>> decodeGroups(const QByteArray &document);

} // namespace perchly
