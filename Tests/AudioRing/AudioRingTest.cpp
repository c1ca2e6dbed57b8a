#include "PlainRing.h"
#include "TestRegistry.h"

#include <QTest>

#include <array>
#include <cstring>
#include <limits>

using namespace perchly;

using Shapes = std::vector<BufferShape>;

namespace {

thread_local bool isRealTime = false;
int realTimeAllocations = 0; ///< while isRealTime is set

enum class Layouts : uint8_t { Stereo, Planar, Any };

Shapes randomShapes(Random &random, Layouts layouts, uint32_t frames) {
    if (layouts == Layouts::Stereo) {
        return {{2, frames * 8}};
    }
    if (layouts == Layouts::Planar) {
        return {{1, frames * 4}, {1, frames * 4}};
    }
    Shapes shapes(random() % 4);
    for (BufferShape &shape : shapes) {
        shape.channels = random() % 4;
        const uint32_t whole = frames * shape.channels * 4;
        shape.bytes = random() % 3 ? whole : random() % (whole + 2);
        shape.hasData = random() % 8;
    }
    return shapes;
}

bool sameBytes(const Buffers &one, const Buffers &other) {
    for (size_t buffer = 0; buffer < one.all().size(); ++buffer) {
        if (std::memcmp(one.all()[buffer].data(), other.all()[buffer].data(),
                        one.all()[buffer].size() * sizeof(float)) != 0) {
            return false;
        }
    }
    return true;
}

} // namespace

#ifndef __SANITIZE_ADDRESS__ // the address sanitizer has its own malloc
extern "C" void *__libc_malloc(size_t size);
extern "C" [[gnu::visibility("default")]] void *malloc(size_t size) noexcept {
    realTimeAllocations += isRealTime;
    return __libc_malloc(size);
}
#endif

class AudioRingTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void outputMatchesTheReferenceRing_data() {
        QTest::addColumn<Layouts>("layouts");
        QTest::addColumn<bool>("hasPlayedForADay");
        QTest::newRow("one stereo buffer") << Layouts::Stereo << false;
        QTest::newRow("two mono buffers") << Layouts::Planar << false;
        QTest::newRow("any layouts, short and null ones too") << Layouts::Any << false;
        QTest::newRow("32-bit frame counters wrap") << Layouts::Stereo << true;
    }

    void outputMatchesTheReferenceRing() {
        QFETCH(Layouts, layouts);
        QFETCH(bool, hasPlayedForADay);
        Random random{std::mt19937(20)};
        const Ring ring(perchly_ring_create());
        PlainRing plain;
        perchly_ring_push(ring.get(), nullptr);
        constexpr uint32_t block = 16384;
        constexpr uint64_t wrap = uint64_t(1) << 32;
        Buffers played({{2, block * 8}});
        for (uint64_t done = block; hasPlayedForADay && done < wrap; done += block) {
            perchly_ring_push(ring.get(), played.list());
            perchly_ring_pull(ring.get(), played.list(), block);
        }
        constexpr std::array<float, 9> gains{
            0, 0.5F, 1, -0.5F, 3, 1e-40F, 1e-38F, 0.7F, std::numeric_limits<float>::quiet_NaN()};
        for (int round = 0; round < 6000; ++round) {
            const bool gainSettles = round >= 3000; // from then on samples may have any bits
            const uint32_t maxFrames = random() % 16 ? 700 : 40000;
            if (random() % (gainSettles ? 150 : 4) == 0) {
                const float gain = gains[random() % gains.size()];
                perchly_ring_gain(ring.get(), gain);
                plain.gain(gain);
            }
            // The first round pushes more than the ring holds.
            const uint32_t pushed = round == 0 ? 40000 : random() % maxFrames;
            Buffers input(
                randomShapes(random, round && random() % 4 == 0 ? Layouts::Any : layouts, pushed));
            input.fill(random, gainSettles && random() % 2);
            const uint32_t frames = random() % maxFrames;
            const Shapes shapes = randomShapes(random, layouts, frames);
            Buffers output(shapes);
            Buffers expected(shapes);
            isRealTime = true;
            perchly_ring_push(ring.get(), input.list());
            perchly_ring_pull(ring.get(), output.list(), frames);
            isRealTime = false;
            plain.push(input.list());
            plain.pull(expected.list(), frames);
            QVERIFY2(sameBytes(output, expected),
                     qPrintable(QStringLiteral("round %1").arg(round)));
        }
        QCOMPARE(realTimeAllocations, 0);
    }
};

static const RegisteredTest<AudioRingTest> registeredAudioRingTest;

#include "AudioRingTest.moc"
