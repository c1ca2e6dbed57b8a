#pragma once

#include "ShellActions.h"

#include <QtQml/qqml.h>

namespace perchly {

struct ShellActionsForeign {
    Q_GADGET
    QML_FOREIGN(perchly::ShellActions)
    QML_NAMED_ELEMENT(ShellActions)
    QML_UNCREATABLE("Given to the views by the shell.")
};

} // namespace perchly
