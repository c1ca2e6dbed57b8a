#include "PlainRing.h"
#include "TestRegistry.h"

#include <QTest>

#include <atomic>
#include <chrono>
#include <cmath>
#include <thread>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

/// The left sample of a frame, exact in a float and never silent. The right sample is its negative.
float leftOf(uint32_t number) {
    return float(number % 8388607 + 1);
}

} // namespace

class AudioRingThreadsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void framesArriveWholeAndInOrder() {
        const Ring ring(perchly_ring_create());
        std::atomic<uint32_t> read = 0;
        std::atomic<bool> ended = false;
        std::thread producer([&] {
            Random random{std::mt19937(1)};
            uint32_t next = 1;
            while (!ended) {
                // Never more than fits, so that no frame is dropped.
                const uint32_t room = 32768 - (next - 1 - read.load(std::memory_order_relaxed));
                const uint32_t count = std::min<uint32_t>(random() % 2000, room);
                Buffers input({{2, count * 8}});
                for (uint32_t frame = 0; frame < count; ++frame) {
                    input.samples(0)[2 * frame] = leftOf(next + frame);
                    input.samples(0)[2 * frame + 1] = -leftOf(next + frame);
                }
                perchly_ring_push(ring.get(), input.list());
                next += count;
            }
        });
        Random random{std::mt19937(2)};
        uint32_t expected = 1;
        uint32_t wrong = 0;
        const auto end = std::chrono::steady_clock::now() + 2s;
        while (std::chrono::steady_clock::now() < end) {
            const uint32_t count = random() % 2000;
            Buffers output({{1, count * 4}, {1, count * 4}});
            perchly_ring_pull(ring.get(), output.list(), count);
            for (uint32_t frame = 0; frame < count && output.samples(0)[frame] != 0; ++frame) {
                const float left = leftOf(expected++);
                wrong += output.samples(0)[frame] != left || output.samples(1)[frame] != -left;
            }
            read.store(expected - 1, std::memory_order_relaxed);
        }
        ended = true;
        producer.join();
        QCOMPARE(wrong, 0U);
        QVERIFY(expected > 100000);
    }

    void gainChangesFromAnotherThreadAreSmooth() {
        const Ring ring(perchly_ring_create());
        std::atomic<bool> ended = false;
        std::thread producer([&] {
            Buffers ones({{1, 256 * 4}});
            std::fill_n(ones.samples(0), 256, 1.0F);
            while (!ended) {
                perchly_ring_push(ring.get(), ones.list());
            }
        });
        std::thread controller([&] {
            for (uint32_t number = 0; !ended; ++number) {
                perchly_ring_gain(ring.get(), number % 2 ? 1.0F : 0.0F);
            }
        });
        Buffers output({{1, 256 * 4}});
        float before = 1;
        float maxStep = 0;
        for (int round = 0; round < 20000; ++round) {
            perchly_ring_pull(ring.get(), output.list(), 256);
            for (int frame = 0; frame < 256 && output.samples(0)[frame] != 0; ++frame) {
                const float now = output.samples(0)[frame];
                maxStep = frame > 0 ? std::max(maxStep, std::abs(now - before)) : maxStep;
                before = now;
            }
        }
        ended = true;
        producer.join();
        controller.join();
        QVERIFY(maxStep <= 0.00401F);
    }
};

static const RegisteredTest<AudioRingThreadsTest> registeredAudioRingThreadsTest;

#include "AudioRingThreadsTest.moc"
