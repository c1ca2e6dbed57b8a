#include "NullAudio.h"

#include <cerrno>

namespace perchly {

AudioStatus NullAudioRoute::createTap(const TapDescription &, AudioObject &) {
    return -ENOSYS;
}

AudioStatus NullAudioRoute::readTapFormat(AudioObject, StreamFormat &) {
    return -ENOSYS;
}

AudioStatus NullAudioRoute::createDevice(const AggregateDescription &, AudioObject &) {
    return -ENOSYS;
}

AudioStatus NullAudioRoute::createIo(AudioObject, CaptureBlock, IoProcId &) {
    return -ENOSYS;
}

AudioStatus NullAudioRoute::startDevice(AudioObject, IoProcId) {
    return -ENOSYS;
}

std::unique_ptr<AudioSourceNode> NullAudioRoute::makeSource(const PlaybackFormat &, RenderBlock) {
    return std::make_unique<AudioSourceNode>();
}

QString NullAudioRoute::start() {
    return QStringLiteral("There is no audio system.");
}

} // namespace perchly
