#include "FakeAudio.h"

namespace perchly {

namespace {

constexpr AudioObject tapObject = 61;
constexpr AudioObject deviceObject = 62;
constexpr IoProcId ioProc = 63;

struct FakeSource : AudioSourceNode {
    std::shared_ptr<RenderBlock> render;
};

} // namespace

std::optional<RunningApplication> FakeAudioSystem::application(AudioObject process) const {
    const auto found = applications.constFind(process);
    return found == applications.cend() ? std::nullopt : std::optional(*found);
}

std::unique_ptr<AudioRoute> FakeAudioSystem::makeRoute() {
    return std::make_unique<FakeAudioRoute>(*this);
}

FakeAudioRoute *FakeAudioSystem::route(AudioObject process) const {
    for (FakeAudioRoute *route : m_routes) {
        if (route->tap && route->tap->processes.contains(process)) {
            return route;
        }
    }
    return nullptr;
}

FakeAudioRoute::FakeAudioRoute(FakeAudioSystem &system)
    : m_system(system) {
    m_system.m_routes.append(this);
}

FakeAudioRoute::~FakeAudioRoute() {
    m_system.m_routes.removeOne(this);
}

AudioStatus FakeAudioRoute::note(const char *function) const {
    const QString name = QString::fromLatin1(function);
    m_system.calls.append(name);
    return m_system.failing == name ? m_system.status : noAudioError;
}

AudioStatus FakeAudioRoute::createTap(const TapDescription &description, AudioObject &made) {
    const AudioStatus status = note("createTap");
    if (status == noAudioError) {
        tap = description;
        made = tapObject;
    }
    return status;
}

AudioStatus FakeAudioRoute::readTapFormat(AudioObject object, StreamFormat &format) {
    Q_ASSERT(object == tapObject && tap);
    const AudioStatus status = note("readTapFormat");
    if (status == noAudioError) {
        format = m_system.format;
    }
    return status;
}

AudioStatus FakeAudioRoute::createDevice(const AggregateDescription &description,
                                         AudioObject &made) {
    const AudioStatus status = note("createDevice");
    if (status == noAudioError) {
        device = description;
        made = deviceObject;
    }
    return status;
}

AudioStatus FakeAudioRoute::createIo(AudioObject object, CaptureBlock block, IoProcId &io) {
    Q_ASSERT(object == deviceObject && device);
    const AudioStatus status = note("createIo");
    if (status == noAudioError) {
        capture = std::move(block);
        io = ioProc;
    }
    return status;
}

AudioStatus FakeAudioRoute::startDevice(AudioObject object, IoProcId io) {
    Q_ASSERT(object == deviceObject && io == ioProc && capture);
    const AudioStatus status = note("startDevice");
    started = status == noAudioError;
    return status;
}

void FakeAudioRoute::stopDevice(AudioObject object, IoProcId io) {
    Q_ASSERT(object == deviceObject && io == ioProc);
    note("stopDevice");
    started = false;
}

void FakeAudioRoute::destroyIo(AudioObject object, IoProcId io) {
    Q_ASSERT(object == deviceObject && io == ioProc && !started);
    note("destroyIo");
    capture = nullptr;
}

void FakeAudioRoute::destroyDevice(AudioObject object) {
    Q_ASSERT(object == deviceObject && device && !capture);
    note("destroyDevice");
    device.reset();
}

void FakeAudioRoute::destroyTap(AudioObject object) {
    Q_ASSERT(object == tapObject && tap && !device);
    note("destroyTap");
    tap.reset();
}

std::optional<PlaybackFormat> FakeAudioRoute::playbackFormat(double sampleRate,
                                                             std::uint32_t channels) const {
    if (note("playbackFormat") != noAudioError) {
        return std::nullopt;
    }
    return PlaybackFormat{sampleRate, channels};
}

std::unique_ptr<AudioSourceNode> FakeAudioRoute::makeSource(const PlaybackFormat &,
                                                            RenderBlock block) {
    note("makeSource");
    auto source = std::make_unique<FakeSource>();
    source->render = std::make_shared<RenderBlock>(std::move(block));
    render = source->render;
    return source;
}

void FakeAudioRoute::attach(AudioSourceNode &) {
    note("attach");
}

void FakeAudioRoute::connectToMixer(AudioSourceNode &, const PlaybackFormat &format) {
    note("connectToMixer");
    playback = format;
}

void FakeAudioRoute::detach(AudioSourceNode &) {
    note("detach");
}

QString FakeAudioRoute::start() {
    running = note("start") == noAudioError;
    return running ? QString() : m_system.engineError;
}

void FakeAudioRoute::stop() {
    note("stop");
    running = false;
}

} // namespace perchly
