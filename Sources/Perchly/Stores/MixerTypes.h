#pragma once

#include "AudioAppList.h"
#include "VolumeMixer.h"

#include <QtQml/qqml.h>

namespace perchly {

struct AudioAppListForeign {
    Q_GADGET
    QML_FOREIGN(perchly::AudioAppList)
    QML_NAMED_ELEMENT(AudioAppList)
    QML_UNCREATABLE("Given to the views by the mixer.")
};

struct VolumeMixerForeign {
    Q_GADGET
    QML_FOREIGN(perchly::VolumeMixer)
    QML_NAMED_ELEMENT(VolumeMixer)
    QML_UNCREATABLE("Given to the views by the shell.")
};

} // namespace perchly
