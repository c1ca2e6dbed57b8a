#include "RingHandle.h"

namespace perchly {

std::shared_ptr<RingHandle> RingHandle::make(Allocator allocate) {
    AudioRingBuffer *ring = allocate();
    return ring == nullptr ? nullptr : std::shared_ptr<RingHandle>(new RingHandle(ring));
}

RingHandle::RingHandle(AudioRingBuffer *ring)
    : pointer(ring) {}

RingHandle::~RingHandle() {
    perchly_ring_destroy(pointer);
}

CaptureBlock RingHandle::captureBlock() {
    return [handle = shared_from_this()](const AudioTimeStamp &, const AudioBufferList *input,
                                         const AudioTimeStamp &, AudioBufferList *,
                                         const AudioTimeStamp &) {
        perchly_ring_push(handle->pointer, input);
    };
}

RenderBlock RingHandle::renderBlock() {
    return [handle = shared_from_this()](bool &, const AudioTimeStamp &, std::uint32_t frames,
                                         AudioBufferList *output) {
        perchly_ring_pull(handle->pointer, output, frames);
        return noAudioError;
    };
}

} // namespace perchly
