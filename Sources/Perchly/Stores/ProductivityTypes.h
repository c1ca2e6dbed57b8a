#pragma once

#include "Productivity.h"

#include <QtQml/qqml.h>

namespace perchly {

struct ProductivityForeign {
    Q_GADGET
    QML_FOREIGN(perchly::Productivity)
    QML_NAMED_ELEMENT(Productivity)
    QML_UNCREATABLE("Given to the views by the shell.")
};

} // namespace perchly
