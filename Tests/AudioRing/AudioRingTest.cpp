#include "PlainRing.h"
#include "TestRegistry.h"

#include <QTest>

#include <cstring>
#include <limits>

using namespace perchly;

using Shapes = std::vector<BufferShape>;
Q_DECLARE_METATYPE(Shapes)

namespace {

constexpr uint32_t capacity = 32768;

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

/// Frames 1, 2, 3 … from `first` on, the right sample the negative of the left.
void push(AudioRingBuffer *ring, uint32_t count, uint32_t first = 1) {
    Buffers input({{2, count * 8}});
    for (uint32_t frame = 0; frame < count; ++frame) {
        input.samples(0)[2 * frame] = float(first + frame);
        input.samples(0)[2 * frame + 1] = -float(first + frame);
    }
    perchly_ring_push(ring, input.list());
}

std::vector<float> pull(AudioRingBuffer *ring, uint32_t frames) {
    Buffers output({{2, frames * 8}});
    perchly_ring_pull(ring, output.list(), frames);
    return {output.samples(0), output.samples(0) + size_t(2) * frames};
}

} // namespace

class AudioRingTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void agreesWithThePlainLoop_data() {
        QTest::addColumn<Layouts>("layouts");
        QTest::addColumn<bool>("anyBits");
        QTest::addColumn<bool>("settles");
        QTest::newRow("one stereo buffer, moving gains") << Layouts::Stereo << false << false;
        QTest::newRow("one stereo buffer, settled gains") << Layouts::Stereo << false << true;
        QTest::newRow("one stereo buffer, samples of any bits") << Layouts::Stereo << true << true;
        QTest::newRow("two mono buffers, moving gains") << Layouts::Planar << false << false;
        QTest::newRow("two mono buffers, settled gains") << Layouts::Planar << false << true;
        QTest::newRow("two mono buffers, samples of any bits") << Layouts::Planar << true << true;
        QTest::newRow("any layouts, short and null ones too") << Layouts::Any << false << false;
        QTest::newRow("any layouts, settled gains, any bits") << Layouts::Any << true << true;
    }

    void agreesWithThePlainLoop() {
        QFETCH(Layouts, layouts);
        QFETCH(bool, anyBits);
        QFETCH(bool, settles);
        Random random{std::mt19937(20)};
        const Ring ring(perchly_ring_create());
        PlainRing plain;
        constexpr std::array<float, 8> gains{0, 0.5F, 1, -0.5F, 3, 1e-40F, 1e-38F, 0.7F};
        for (int round = 0; round < 3000; ++round) {
            const uint32_t maxFrames = random() % 16 ? 700 : 40000;
            if (random() % (settles ? 150 : 4) == 0) {
                const float gain = gains[random() % gains.size()];
                perchly_ring_gain(ring.get(), gain);
                plain.gain(gain);
            }
            Buffers input(
                randomShapes(random, random() % 4 ? layouts : Layouts::Any, random() % maxFrames));
            input.fill(random, anyBits && random() % 2);
            perchly_ring_push(ring.get(), input.list());
            plain.push(input.list());

            const uint32_t frames = random() % maxFrames;
            const Shapes shapes = randomShapes(random, layouts, frames);
            Buffers output(shapes);
            Buffers expected(shapes);
            perchly_ring_pull(ring.get(), output.list(), frames);
            plain.pull(expected.list(), frames);
            QVERIFY2(sameBytes(output, expected),
                     qPrintable(QStringLiteral("round %1").arg(round)));
        }
    }

    void dropsWhatDoesNotFit() {
        const Ring ring(perchly_ring_create());
        push(ring.get(), 40000);
        push(ring.get(), 10, 90000);
        QCOMPARE(pull(ring.get(), 2), (std::vector<float>{1, -1, 2, -2}));
        push(ring.get(), 10, 90000);
        perchly_ring_push(ring.get(), nullptr);
        const std::vector<float> rest = pull(ring.get(), capacity + 1);
        QCOMPARE(rest[size_t(2) * (capacity - 3)], 32768.0F);
        QCOMPARE(rest[size_t(2) * (capacity - 2)], 90000.0F);
        QCOMPARE(rest[size_t(2) * (capacity - 1)], 90001.0F);
        QCOMPARE(rest[size_t(2) * capacity], 0.0F);
    }

    void gainIsClamped_data() {
        QTest::addColumn<float>("asked");
        QTest::addColumn<float>("first");
        QTest::newRow("below 0 is 0") << -0.5F << 0.996F;
        QTest::newRow("above 1 is 1") << 3.0F << 1.0F;
        QTest::newRow("a level") << 0.5F << 0.998F;
        QTest::newRow("NaN is ignored") << std::numeric_limits<float>::quiet_NaN() << 1.0F;
    }

    void gainIsClamped() {
        QFETCH(float, asked);
        const Ring ring(perchly_ring_create());
        perchly_ring_gain(ring.get(), asked);
        push(ring.get(), 1);
        QTEST(pull(ring.get(), 1)[0], "first");
    }

    void playsOnAfterTheCountersWrap() {
        const Ring ring(perchly_ring_create());
        constexpr uint32_t block = 16384;
        Buffers input({{2, block * 8}});
        Buffers output({{2, block * 8}});
        constexpr uint64_t wrap = uint64_t(1) << 32;
        for (uint64_t done = 0; done < wrap - block; done += block) {
            perchly_ring_push(ring.get(), input.list());
            perchly_ring_pull(ring.get(), output.list(), block);
        }
        // The counters wrap within the next block, with a full ring.
        for (int round = 0; round < 2; ++round) {
            push(ring.get(), capacity);
            push(ring.get(), 10, 90000);
            const std::vector<float> out = pull(ring.get(), capacity + 1);
            for (uint32_t frame = 0; frame < capacity; ++frame) {
                QCOMPARE(out[size_t(2) * frame], float(frame + 1));
            }
            QCOMPARE(out[size_t(2) * capacity], 0.0F);
        }
    }
};

static const RegisteredTest<AudioRingTest> registeredAudioRingTest;

#include "AudioRingTest.moc"
