#pragma once

#include "AudioRoute.h"

#include <QString>

namespace perchly {

/// A process that plays audio.
struct AudioApp {
    AudioObject id = 0; ///< the process in the audio system; identifies the record
    QString name;
    QString bundleId; ///< empty if it has none
    std::int32_t pid = 0;
    QString path; ///< path of the application's desktop entry; empty if it has none

    friend bool operator==(const AudioApp &, const AudioApp &) = default;
};

} // namespace perchly
