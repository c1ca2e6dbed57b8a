#pragma once

#include "AudioSystem.h"

namespace perchly {

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
    [[nodiscard]] std::unique_ptr<AudioRoute> route(AudioObject, std::shared_ptr<AudioRingBuffer>,
                                                    QString &error) override {
        error = QStringLiteral("There is no audio system.");
        return nullptr;
    }
};

} // namespace perchly
