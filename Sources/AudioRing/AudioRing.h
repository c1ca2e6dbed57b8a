#pragma once

#include <stdint.h>

/// A lock-free ring of stereo frames (32-bit floats) between one producer thread and one consumer
/// thread, with a smoothed gain applied on pull. It holds 32768 frames, 0.68 s at 48 kHz.
///
/// Push and pull are safe on real-time threads: they never wait, allocate or make system calls. No
/// function checks the ring pointer.

#ifdef __cplusplus
extern "C" {
#endif

/// The samples of one or more channels, interleaved: frame f of channel c is element
/// f * mNumberChannels + c.
typedef struct AudioBuffer {
    uint32_t mNumberChannels;
    uint32_t mDataByteSize;
    void *mData; ///< 32-bit floats, or null
} AudioBuffer;

/// `mNumberBuffers` buffers; the array declares only the first.
typedef struct AudioBufferList {
    uint32_t mNumberBuffers;
    AudioBuffer mBuffers[1];
} AudioBufferList;

typedef struct AudioRingBuffer AudioRingBuffer;

/// An empty ring at gain 1, or null when memory is exhausted.
AudioRingBuffer *perchly_ring_create(void);

/// Frees the ring; null is accepted. No other call may be running or follow.
void perchly_ring_destroy(AudioRingBuffer *ring);

/// Sets the target gain, clamped to 0…1; the consumer approaches it by 0.4 % of the distance per
/// frame. Ignores NaN. One thread at a time.
void perchly_ring_gain(AudioRingBuffer *ring, float gain);

/// Appends the frames of `input`; drops those that do not fit. If the first of several buffers has
/// one channel, the first two buffers are left and right. Otherwise only the first buffer counts:
/// its only channel goes to both sides, or its first two are left and right. Ignores a null list,
/// one without data, and a second buffer shorter than the first. For the producer's thread.
void perchly_ring_push(AudioRingBuffer *ring, const AudioBufferList *input);

/// Fills `frames` frames of `output`, as far as each buffer's size allows, with frames of the ring
/// and then silence. Channels are numbered across all buffers: even ones get the left sample, odd
/// ones the right. For the consumer's thread.
void perchly_ring_pull(AudioRingBuffer *ring, AudioBufferList *output, uint32_t frames);

#ifdef __cplusplus
}
#endif
