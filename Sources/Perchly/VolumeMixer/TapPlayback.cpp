#include "TapPlayback.h"

#include "MixerError.h"

namespace perchly {

namespace {

constexpr std::uint32_t stereo = 2;

bool isAccepted(const StreamFormat &format) {
    return format.encoding == AudioEncoding::LinearPcm && format.samples == SampleKind::Float &&
           format.bitsPerChannel == 32 && format.channelsPerFrame == stereo &&
           format.sampleRate > 0;
}

} // namespace

TapPlayback::TapPlayback(AudioSystem &system, AudioObject process,
                         RingHandle::Allocator allocateRing)
    : m_route(system.makeRoute())
    , m_engine(m_route->engine())
    , m_ring(RingHandle::make(allocateRing)) {
    if (!m_ring) {
        throw MixerError(QStringLiteral("Cannot allocate audio buffer"));
    }
    try {
        build(process);
    } catch (...) {
        stop();
        throw;
    }
}

void TapPlayback::build(AudioObject process) {
    const StreamFormat format = tapProcess(process);
    const AggregateDescription description{
        .name = QStringLiteral("Perchly private app audio"),
        .uid = QUuid::createUuid().toString(QUuid::WithoutBraces),
        .isPrivate = true,
        .tapAutoStart = true,
        .taps = {SubTap{.uid = m_tapUuid.toString(QUuid::WithoutBraces), .drift = true}}};
    check(m_route->createDevice(description, m_device),
          QStringLiteral("Cannot create private audio route"));
    IoProcId io = 0;
    check(m_route->createIo(m_device, m_ring->captureBlock(), io),
          QStringLiteral("Cannot connect app audio"));
    m_io = io;
    connectEngine(format);
    if (const QString error = m_engine.start(); !error.isEmpty()) {
        throw MixerError(error);
    }
    check(m_route->startDevice(m_device, io),
          QStringLiteral("Cannot start app audio. Check audio-capture permission"));
}

StreamFormat TapPlayback::tapProcess(AudioObject process) {
    const TapDescription description{.processes = {process},
                                     .name = QStringLiteral("Perchly app volume"),
                                     .isPrivate = true,
                                     .mute = TapMute::MutedWhenTapped,
                                     .uuid = QUuid::createUuid()};
    m_tapUuid = description.uuid;
    check(m_route->createTap(description, m_tap),
          QStringLiteral("Audio access failed. Allow Perchly in System Settings → Privacy & "
                         "Security → Screen & System Audio Recording, then retry"));
    StreamFormat format;
    check(m_route->readTapFormat(m_tap, format), QStringLiteral("Cannot read app audio format"));
    if (!isAccepted(format)) {
        throw MixerError(
            QStringLiteral("This app’s audio format is not supported by the mixer yet."));
    }
    return format;
}

void TapPlayback::connectEngine(const StreamFormat &format) {
    const auto playback = m_engine.playbackFormat(format.sampleRate, stereo);
    if (!playback) {
        throw MixerError(QStringLiteral("Unsupported sample rate"));
    }
    m_source = m_engine.makeSource(*playback, m_ring->renderBlock());
    m_engine.attach(*m_source);
    m_engine.connectToMixer(*m_source, *playback);
}

void TapPlayback::stop() {
    if (m_device != 0 && m_io) {
        m_route->stopDevice(m_device, *m_io);
        m_route->destroyIo(m_device, *m_io);
    }
    m_io.reset();
    m_engine.stop();
    if (m_source) {
        m_engine.detach(*m_source);
        m_source.reset();
    }
    if (m_device != 0) {
        m_route->destroyDevice(m_device);
        m_device = 0;
    }
    if (m_tap != 0) {
        m_route->destroyTap(m_tap);
        m_tap = 0;
    }
}

bool TapPlayback::isRunning() const {
    return m_engine.isRunning();
}

} // namespace perchly
