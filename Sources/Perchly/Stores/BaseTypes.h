#pragma once

#include "KeyedRows.h"
#include "ShellActions.h"

#include <QtQml/qqml.h>

namespace perchly {

struct KeyedRowsForeign {
    Q_GADGET
    QML_FOREIGN(perchly::KeyedRows)
    QML_NAMED_ELEMENT(KeyedRows)
    QML_UNCREATABLE("Given to the views by the stores.")
};

struct ShellActionsForeign {
    Q_GADGET
    QML_FOREIGN(perchly::ShellActions)
    QML_NAMED_ELEMENT(ShellActions)
    QML_UNCREATABLE("Given to the views by the shell.")
};

} // namespace perchly
