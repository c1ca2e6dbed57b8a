#pragma once

#include "AudioSystem.h"

#include <QHash>
#include <QPointer>

namespace perchly {

/// A route that runs until the test stops it.
struct FakeAudioRoute : QObject, AudioRoute {
    bool isRunning() const override { return running; }

    std::shared_ptr<AudioRingBuffer> ring;
    bool running = true;
};

/// An audio system whose processes and output the test sets.
class FakeAudioSystem : public AudioSystem {
public:
    using AudioSystem::AudioSystem;

    void start() override {}
    bool canRouteProcesses() const override { return routable; }
    AudioObject defaultOutput() const override { return output; }
    std::optional<QList<AudioProcess>> processes() const override { return list; }
    std::optional<RunningApplication> application(AudioObject process) const override {
        const auto found = applications.constFind(process);
        return found == applications.cend() ? std::nullopt : std::optional(*found);
    }
    std::unique_ptr<AudioRoute> route(AudioObject process, std::shared_ptr<AudioRingBuffer> ring,
                                      QString &error) override {
        error = failure;
        if (!failure.isEmpty()) {
            return nullptr;
        }
        auto route = std::make_unique<FakeAudioRoute>();
        route->ring = std::move(ring);
        m_routes.insert(process, route.get());
        return route;
    }

    /// The route of the process, or null.
    [[nodiscard]] FakeAudioRoute *routeOf(AudioObject process) const {
        return m_routes.value(process);
    }

    bool routable = true;
    AudioObject output = 40;
    std::optional<QList<AudioProcess>> list{QList<AudioProcess>()};
    QHash<AudioObject, RunningApplication> applications; ///< by their processes
    QString failure;                                     ///< makes every further route fail

private:
    QHash<AudioObject, QPointer<FakeAudioRoute>> m_routes;
};

} // namespace perchly
