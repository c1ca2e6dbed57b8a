#pragma once

#include "DisplayPreferences.h"
#include "Productivity.h"

#include <QtQml/qqml.h>

namespace perchly {

struct ClipForeign {
    Q_GADGET
    QML_FOREIGN(perchly::Clip)
    QML_VALUE_TYPE(clip)
};

struct SavedLayoutForeign {
    Q_GADGET
    QML_FOREIGN(perchly::SavedLayout)
    QML_VALUE_TYPE(savedLayout)
};

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
