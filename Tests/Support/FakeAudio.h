#pragma once

#include "AudioSystem.h"

#include <QHash>

namespace perchly {

/// A route that runs until the test says otherwise.
struct FakeAudioRoute : AudioRoute {
    FakeAudioRoute(AudioObject routed, std::shared_ptr<AudioRingBuffer> through,
                   QList<FakeAudioRoute *> &routes)
        : process(routed)
        , ring(std::move(through))
        , all(routes) {
        all.append(this);
    }
    ~FakeAudioRoute() override { all.removeOne(this); }
    Q_DISABLE_COPY_MOVE(FakeAudioRoute)

    bool isRunning() const override { return running; }

    AudioObject process;
    std::shared_ptr<AudioRingBuffer> ring;
    QList<FakeAudioRoute *> &all;
    bool running = true;
};

/// An audio system whose processes and output are what the test says.
class FakeAudioSystem : public AudioSystem {
public:
    using AudioSystem::AudioSystem;

    void start() override { started = true; }
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
        return failure.isEmpty() ? std::make_unique<FakeAudioRoute>(process, ring, routes)
                                 : nullptr;
    }

    /// The route of the process; null when there is none.
    [[nodiscard]] FakeAudioRoute *routeOf(AudioObject process) const {
        for (FakeAudioRoute *route : routes) {
            if (route->process == process) {
                return route;
            }
        }
        return nullptr;
    }

    bool started = false;
    bool routable = true;
    AudioObject output = 40;
    std::optional<QList<AudioProcess>> list{QList<AudioProcess>()};
    QHash<AudioObject, RunningApplication> applications; ///< by their processes
    QList<FakeAudioRoute *> routes;
    QString failure; ///< of every further route
};

} // namespace perchly
