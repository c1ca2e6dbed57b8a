#pragma once

#include "AudioSystem.h"

namespace perchly {

/// Refuses every step.
class NullAudioRoute : public AudioRoute, public AudioEngine {
public:
    [[nodiscard]] AudioStatus createTap(const TapDescription &, AudioObject &) override;
    [[nodiscard]] AudioStatus readTapFormat(AudioObject, StreamFormat &) override;
    [[nodiscard]] AudioStatus createDevice(const AggregateDescription &, AudioObject &) override;
    [[nodiscard]] AudioStatus createIo(AudioObject, CaptureBlock, IoProcId &) override;
    [[nodiscard]] AudioStatus startDevice(AudioObject, IoProcId) override;
    void stopDevice(AudioObject, IoProcId) override {}
    void destroyIo(AudioObject, IoProcId) override {}
    void destroyDevice(AudioObject) override {}
    void destroyTap(AudioObject) override {}
    [[nodiscard]] AudioEngine &engine() override { return *this; }

    [[nodiscard]] std::optional<PlaybackFormat> playbackFormat(double,
                                                               std::uint32_t) const override {
        return std::nullopt;
    }
    [[nodiscard]] std::unique_ptr<AudioSourceNode> makeSource(const PlaybackFormat &,
                                                              RenderBlock) override;
    void attach(AudioSourceNode &) override {}
    void connectToMixer(AudioSourceNode &, const PlaybackFormat &) override {}
    void detach(AudioSourceNode &) override {}
    [[nodiscard]] QString start() override;
    void stop() override {}
    [[nodiscard]] bool isRunning() const override { return false; }
};

/// No audio system.
class NullAudioSystem : public AudioSystem {
public:
    using AudioSystem::AudioSystem;

    void start() override {}
    [[nodiscard]] bool canRouteProcesses() const override { return false; }
    [[nodiscard]] AudioObject defaultOutput() const override { return 0; }
    [[nodiscard]] std::optional<QList<AudioProcess>> processes() const override {
        return std::nullopt;
    }
    [[nodiscard]] std::optional<RunningApplication> application(AudioObject) const override {
        return std::nullopt;
    }
    [[nodiscard]] std::unique_ptr<AudioRoute> makeRoute() override {
        return std::make_unique<NullAudioRoute>();
    }
};

} // namespace perchly
