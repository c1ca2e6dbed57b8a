#pragma once

#include "Appearance.h"
#include "Motion.h"

#include <QtQml/qqml.h>

namespace perchly {

struct AppearanceForeign {
    Q_GADGET
    QML_FOREIGN(perchly::Appearance)
    QML_NAMED_ELEMENT(Appearance)
    QML_UNCREATABLE("Given to the views by the shell.")
};

struct MotionForeign {
    Q_GADGET
    QML_FOREIGN(perchly::Motion)
    QML_NAMED_ELEMENT(Motion)
    QML_UNCREATABLE("Given to the views by the shell.")
};

} // namespace perchly
