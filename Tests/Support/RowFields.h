#pragma once

#include "KeyedRows.h"

#include <QStringList>

namespace perchly {

/// This field of all rows, in order.
inline QStringList fieldsOf(const KeyedRows &rows, const char *name) {
    QStringList fields;
    for (int row = 0; row < rows.count(); ++row) {
        fields.append(rows.field(row, name).toString());
    }
    return fields;
}

} // namespace perchly
