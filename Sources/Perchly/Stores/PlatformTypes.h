#pragma once

#include "Motion.h"

#include <QtQml/qqml.h>

namespace perchly {

struct MotionForeign {
    Q_GADGET
    QML_FOREIGN(perchly::Motion)
    QML_NAMED_ELEMENT(Motion)
    QML_UNCREATABLE("Given to the views by the shell.")
};

} // namespace perchly
