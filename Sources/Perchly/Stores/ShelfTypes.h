#pragma once

#include "ShelfModel.h"

#include <QtQml/qqml.h>

namespace perchly {

struct ShelfModelForeign {
    Q_GADGET
    QML_FOREIGN(perchly::ShelfModel)
    QML_NAMED_ELEMENT(ShelfModel)
    QML_UNCREATABLE("Given to the views by the shell.")
};

} // namespace perchly
