#pragma once

#include <QtGlobal>

#include <cstdint>
#include <functional>

struct AudioBufferList;

namespace perchly {

/// Names an object of the audio system: a process, a tap, a device. 0 is none. An identifier is not
/// used again within a run of the program.
using AudioObject = std::uint32_t;

/// What a call to the audio system came to: 0 is no error, else a negative error number.
using AudioStatus = std::int32_t;

constexpr AudioStatus noAudioError = 0;

/// The moment of a cycle: frames since the stream began, and nanoseconds of the system's monotonic
/// clock.
struct AudioTimeStamp {
    double sampleTime = 0;
    std::uint64_t hostTime = 0;
};

/// Called on the device's real-time thread once for each cycle, with what was captured. It must not
/// block or allocate.
using CaptureBlock = std::function<void(const AudioTimeStamp &now, const AudioBufferList *input,
                                        const AudioTimeStamp &inputTime, AudioBufferList *output,
                                        const AudioTimeStamp &outputTime)>;

/// Called on the engine's real-time thread once for each cycle; fills the output with so many
/// frames and answers with a status. It must not block or allocate.
using RenderBlock = std::function<AudioStatus(bool &isSilence, const AudioTimeStamp &time,
                                              std::uint32_t frames, AudioBufferList *output)>;

enum class AudioEncoding { Unknown, LinearPcm, Other };
enum class SampleKind { Integer, Float };

/// The format of a stream. Zeroed, it describes nothing.
struct StreamFormat {
    double sampleRate = 0; ///< frames a second
    AudioEncoding encoding = AudioEncoding::Unknown;
    SampleKind samples = SampleKind::Integer;
    std::uint32_t bitsPerChannel = 0;
    std::uint32_t channelsPerFrame = 0;

    friend bool operator==(const StreamFormat &, const StreamFormat &) = default;
};

} // namespace perchly
