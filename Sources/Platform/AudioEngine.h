#pragma once

#include "AudioStream.h"

#include <QString>

#include <memory>
#include <optional>

namespace perchly {

/// The format in which an engine plays: 32-bit float, one buffer for each channel.
struct PlaybackFormat {
    double sampleRate = 0;
    std::uint32_t channels = 0;
};

/// What an engine plays. The render block lives at least as long as the node.
class AudioSourceNode {
public:
    virtual ~AudioSourceNode() = default;
};

/// Plays one source to the default output device, whichever that is. Main thread only, apart from
/// the render block, which is not called before start(). It may be called for some seconds after
/// stop(), even when node and engine have gone, so it must own what it uses.
class AudioEngine {
public:
    virtual ~AudioEngine() = default;

    /// Nothing when the engine cannot play so.
    [[nodiscard]] virtual std::optional<PlaybackFormat>
    playbackFormat(double sampleRate, std::uint32_t channels) const = 0;
    [[nodiscard]] virtual std::unique_ptr<AudioSourceNode> makeSource(const PlaybackFormat &format,
                                                                      RenderBlock render) = 0;

    virtual void attach(AudioSourceNode &source) = 0;
    virtual void connectToMixer(AudioSourceNode &source, const PlaybackFormat &format) = 0;
    /// The node must be attached; it may be destroyed afterwards.
    virtual void detach(AudioSourceNode &source) = 0;

    /// Empty when it runs now, else why it does not, in words for the person.
    [[nodiscard]] virtual QString start() = 0;
    /// Harmless when it does not run.
    virtual void stop() = 0;
    /// It turns false by itself when the audio system takes the engine away.
    [[nodiscard]] virtual bool isRunning() const = 0;
};

} // namespace perchly
