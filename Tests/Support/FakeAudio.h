#pragma once

#include "AudioSystem.h"

#include <QHash>
#include <QStringList>

namespace perchly {

class FakeAudioRoute;

/// An audio system whose processes and output are what the test says, and whose routes fail where
/// it says.
class FakeAudioSystem : public AudioSystem {
public:
    using AudioSystem::AudioSystem;

    void start() override { started = true; }
    bool canRouteProcesses() const override { return routable; }
    AudioObject defaultOutput() const override { return output; }
    std::optional<QList<AudioProcess>> processes() const override { return list; }
    std::optional<RunningApplication> application(AudioObject process) const override;
    std::unique_ptr<AudioRoute> makeRoute() override;

    /// The route that taps the process; null when there is none.
    [[nodiscard]] FakeAudioRoute *route(AudioObject process) const;

    bool started = false;
    bool routable = true;
    AudioObject output = 40;
    std::optional<QList<AudioProcess>> list{QList<AudioProcess>()};
    QHash<AudioObject, RunningApplication> applications; ///< by their processes

    QStringList calls;     ///< of every route, by the names of the functions, in order
    QString failing;       ///< the function that fails, by its name
    AudioStatus status{0}; ///< what it answers
    QString engineError;   ///< what a failing start of the engine answers
    StreamFormat format{48000, AudioEncoding::LinearPcm, SampleKind::Float, 32, 2};

private:
    friend class FakeAudioRoute;

    QList<FakeAudioRoute *> m_routes;
};

/// Notes each call with the system that made it.
class FakeAudioRoute : public AudioRoute, public AudioEngine {
public:
    explicit FakeAudioRoute(FakeAudioSystem &system);
    ~FakeAudioRoute() override;

    AudioStatus createTap(const TapDescription &description, AudioObject &tap) override;
    AudioStatus readTapFormat(AudioObject tap, StreamFormat &format) override;
    AudioStatus createDevice(const AggregateDescription &description, AudioObject &device) override;
    AudioStatus createIo(AudioObject device, CaptureBlock capture, IoProcId &io) override;
    AudioStatus startDevice(AudioObject device, IoProcId io) override;
    void stopDevice(AudioObject device, IoProcId io) override;
    void destroyIo(AudioObject device, IoProcId io) override;
    void destroyDevice(AudioObject device) override;
    void destroyTap(AudioObject tap) override;
    AudioEngine &engine() override { return *this; }

    std::optional<PlaybackFormat> playbackFormat(double sampleRate,
                                                 std::uint32_t channels) const override;
    std::unique_ptr<AudioSourceNode> makeSource(const PlaybackFormat &format,
                                                RenderBlock render) override;
    void attach(AudioSourceNode &source) override;
    void connectToMixer(AudioSourceNode &source, const PlaybackFormat &format) override;
    void detach(AudioSourceNode &source) override;
    QString start() override;
    void stop() override;
    bool isRunning() const override { return running; }

    std::optional<TapDescription> tap;          ///< while there is one
    std::optional<AggregateDescription> device; ///< while there is one
    CaptureBlock capture;                       ///< while there is a callback
    std::weak_ptr<RenderBlock> render;          ///< empty when the source node has gone
    std::optional<PlaybackFormat> playback;     ///< what the source was connected with
    bool running = false;                       ///< the engine
    bool started = false;                       ///< the device

private:
    AudioStatus note(const char *function) const;

    FakeAudioSystem &m_system;
};

} // namespace perchly
