#pragma once

#include "AudioRoute.h"

#include <QString>

namespace perchly {

/// A process that plays audio.
struct AudioApp {
    AudioObject id = 0; ///< the process in the audio system; the record's identity
    QString name;
    QString bundleId; ///< empty when it has none
    std::int32_t pid = 0;
    QString path; ///< of its application's desktop entry; empty when it has none

    friend bool operator==(const AudioApp &, const AudioApp &) = default;
};

} // namespace perchly
