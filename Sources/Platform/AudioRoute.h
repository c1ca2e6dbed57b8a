#pragma once

#include "AudioEngine.h"

#include <QList>
#include <QString>
#include <QUuid>

namespace perchly {

/// Whether a tapped process is still heard directly.
enum class TapMute { Unmuted, Muted, MutedWhenTapped };

/// What is captured: the output of some processes, mixed down to stereo.
struct TapDescription {
    QList<AudioObject> processes;
    QString name;
    bool isPrivate = true; ///< not for other programs
    TapMute mute = TapMute::MutedWhenTapped;
    QUuid uuid;
};

struct SubTap {
    QString uid; ///< the tap description's
    bool drift = true;
};

/// A device of the program's own, whose input is its taps.
struct AggregateDescription {
    QString name;
    QString uid;
    bool isPrivate = true;
    bool tapAutoStart = true;
    QList<SubTap> taps;
};

/// An IO callback that is registered on a device.
using IoProcId = std::uint32_t;

/// The audio system's half of one route: a tap of one process, a private device that reads it, and
/// an engine that plays. Each call answers with a status and, where it makes something, gives it by
/// reference only on success. The caller makes things in this order and takes them back in the
/// reverse one; what is left when the object goes is taken back by it. No call waits longer than a
/// fraction of a second for the audio system. Both blocks may be called for some seconds after what
/// calls them was stopped or has gone, until the process' own output is back, so they must own what
/// they use. Main thread only, apart from the blocks.
class AudioRoute {
public:
    virtual ~AudioRoute() = default;

    [[nodiscard]] virtual AudioStatus createTap(const TapDescription &description,
                                                AudioObject &tap) = 0;
    [[nodiscard]] virtual AudioStatus readTapFormat(AudioObject tap, StreamFormat &format) = 0;
    [[nodiscard]] virtual AudioStatus createDevice(const AggregateDescription &description,
                                                   AudioObject &device) = 0;
    /// The block is not called before the device is started.
    [[nodiscard]] virtual AudioStatus createIo(AudioObject device, CaptureBlock capture,
                                               IoProcId &io) = 0;
    /// From here on the process is captured, and muted if its tap says so.
    [[nodiscard]] virtual AudioStatus startDevice(AudioObject device, IoProcId io) = 0;

    /// From here on the process is on its way back to its own output; what it plays until then is
    /// still captured.
    virtual void stopDevice(AudioObject device, IoProcId io) = 0;
    virtual void destroyIo(AudioObject device, IoProcId io) = 0;
    virtual void destroyDevice(AudioObject device) = 0;
    /// Now nothing keeps the process from its own output any more.
    virtual void destroyTap(AudioObject tap) = 0;

    /// The same one on every call; it lives as long as the route.
    [[nodiscard]] virtual AudioEngine &engine() = 0;
};

} // namespace perchly
