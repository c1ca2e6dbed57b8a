#pragma once

#include "DisplayPreferences.h"
#include "Productivity.h"

#include <QtQml/qqml.h>

namespace perchly {

struct DisplayPreferencesForeign {
    Q_GADGET
    QML_FOREIGN(perchly::DisplayPreferences)
    QML_NAMED_ELEMENT(DisplayPreferences)
    QML_UNCREATABLE("Given to the views by the shell.")
};

struct ProductivityForeign {
    Q_GADGET
    QML_FOREIGN(perchly::Productivity)
    QML_NAMED_ELEMENT(Productivity)
    QML_UNCREATABLE("Given to the views by the shell.")
};

} // namespace perchly
