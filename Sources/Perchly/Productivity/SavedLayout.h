#pragma once

#include "ShelfItem.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>
#include <QUuid>

#include <optional>

namespace perchly {

/// How the shelf was set up when the person saved it under a name. Identified in lists by `id`;
/// names need not be unique.
struct SavedLayout {
    Q_GADGET
    Q_PROPERTY(QUuid id MEMBER id CONSTANT FINAL)
    Q_PROPERTY(QString name MEMBER name CONSTANT FINAL)
public:
    QUuid id;
    QString name;           ///< never empty, without white space at its ends
    QList<ShelfItem> items; ///< the whole library, in its order
    bool favoritesOnly = false;
    QString left; ///< titles of the pinned widgets
    QString right;

    bool operator==(const SavedLayout &) const = default;
};

/// The stored form: a JSON array of objects in UTF-8, one for each layout in order.
[[nodiscard]] QByteArray encodeLayouts(const QList<SavedLayout> &layouts);

/// Nothing when the document is not such an array, or one element lacks a field or has one of
/// another type. Unknown fields are ignored.
[[nodiscard]] std::optional<QList<SavedLayout>> decodeLayouts(const QByteArray &document);

} // namespace perchly
