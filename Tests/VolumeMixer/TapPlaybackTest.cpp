#include "TapPlayback.h"
#include "FakeAudio.h"
#include "MixerError.h"
#include "TestRegistry.h"

#include <QTest>

#include <array>
#include <memory>
#include <optional>

using namespace perchly;

namespace {

constexpr AudioObject tappedProcess = 17;

const QStringList building{QStringLiteral("createTap"),      QStringLiteral("readTapFormat"),
                           QStringLiteral("createDevice"),   QStringLiteral("createIo"),
                           QStringLiteral("playbackFormat"), QStringLiteral("makeSource"),
                           QStringLiteral("attach"),         QStringLiteral("connectToMixer"),
                           QStringLiteral("start"),          QStringLiteral("startDevice")};

/// Empty when the route could be built; it is stopped again then.
QString buildError(FakeAudioSystem &system, RingHandle::Allocator allocate = perchly_ring_create) {
    try {
        TapPlayback(system, tappedProcess, allocate).stop();
    } catch (const MixerError &error) {
        return error.description();
    }
    return {};
}

} // namespace

class TapPlaybackTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aRouteIsBuiltAndTakenDownInOrder();
    void descriptionsAreComplete();
    void aFailingStepTakesBackWhatWasMade_data();
    void aFailingStepTakesBackWhatWasMade();
    void onlyStereoFloatsAreAccepted_data();
    void onlyStereoFloatsAreAccepted();
    void withoutMemoryNothingIsMade();
    void blocksCarryAudioThroughTheRing();
};

void TapPlaybackTest::aRouteIsBuiltAndTakenDownInOrder() {
    FakeAudioSystem system;
    TapPlayback route(system, tappedProcess);
    QCOMPARE(system.calls, building);
    QVERIFY(route.isRunning());
    FakeAudioRoute &host = *system.route(tappedProcess);
    host.running = false;
    QVERIFY(!route.isRunning());

    system.calls.clear();
    route.stop();
    const QStringList teardown{QStringLiteral("stopDevice"),    QStringLiteral("destroyIo"),
                               QStringLiteral("stop"),          QStringLiteral("detach"),
                               QStringLiteral("destroyDevice"), QStringLiteral("destroyTap")};
    QCOMPARE(system.calls, teardown);
    QVERIFY(host.render.expired());
    system.calls.clear();
    route.stop();
    QCOMPARE(system.calls, QStringList(QStringLiteral("stop")));
}

void TapPlaybackTest::descriptionsAreComplete() {
    FakeAudioSystem system;
    TapPlayback first(system, tappedProcess);
    TapPlayback second(system, tappedProcess + 1);
    const FakeAudioRoute &host = *system.route(tappedProcess);
    QCOMPARE(host.tap->processes, QList<AudioObject>{tappedProcess});
    QCOMPARE(host.tap->name, QStringLiteral("Perchly app volume"));
    QVERIFY(host.tap->isPrivate);
    QCOMPARE(host.tap->mute, TapMute::MutedWhenTapped);
    QCOMPARE(int(host.tap->mute), 2);
    QCOMPARE(host.device->name, QStringLiteral("Perchly private app audio"));
    QVERIFY(host.device->isPrivate && host.device->tapAutoStart);
    QCOMPARE(host.device->taps.size(), 1);
    QCOMPARE(host.device->taps[0].uid, host.tap->uuid.toString(QUuid::WithoutBraces));
    QVERIFY(host.device->taps[0].drift);
    QVERIFY(!QUuid(host.device->uid).isNull());
    QVERIFY(host.device->uid != system.route(tappedProcess + 1)->device->uid);
    QCOMPARE(host.playback->sampleRate, 48000.0);
    QCOMPARE(host.playback->channels, 2U);
    first.stop();
    second.stop();
}

void TapPlaybackTest::aFailingStepTakesBackWhatWasMade_data() {
    QTest::addColumn<QString>("step");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QStringList>("teardown");
    const QString stop = QStringLiteral("stop");
    const QString detach = QStringLiteral("detach");
    const QString tap = QStringLiteral("destroyTap");
    const QString device = QStringLiteral("destroyDevice");
    const QStringList io{QStringLiteral("stopDevice"), QStringLiteral("destroyIo")};
    QTest::newRow("no tap is allowed")
        << QStringLiteral("createTap")
        << QStringLiteral("Audio access failed. Allow Perchly in System Settings → Privacy & "
                          "Security → Screen & System Audio Recording, then retry (-50).")
        << QStringList{stop};
    QTest::newRow("the format cannot be read")
        << QStringLiteral("readTapFormat") << QStringLiteral("Cannot read app audio format (-50).")
        << QStringList{stop, tap};
    QTest::newRow("no device can be made")
        << QStringLiteral("createDevice")
        << QStringLiteral("Cannot create private audio route (-50).") << QStringList{stop, tap};
    QTest::newRow("no callback can be registered")
        << QStringLiteral("createIo") << QStringLiteral("Cannot connect app audio (-50).")
        << QStringList{stop, device, tap};
    QTest::newRow("the engine does not play at that rate")
        << QStringLiteral("playbackFormat") << QStringLiteral("Unsupported sample rate")
        << io + QStringList{stop, device, tap};
    QTest::newRow("the engine does not start")
        << QStringLiteral("start") << QStringLiteral("The engine’s own words")
        << io + QStringList{stop, detach, device, tap};
    QTest::newRow("the device does not start")
        << QStringLiteral("startDevice")
        << QStringLiteral("Cannot start app audio. Check audio-capture permission (-50).")
        << io + QStringList{stop, detach, device, tap};
}

void TapPlaybackTest::aFailingStepTakesBackWhatWasMade() {
    QFETCH(QString, step);
    QFETCH(QString, message);
    QFETCH(QStringList, teardown);
    FakeAudioSystem system;
    system.failing = step;
    system.status = -50;
    system.engineError = QStringLiteral("The engine’s own words");
    QCOMPARE(buildError(system), message);
    QCOMPARE(system.calls, building.mid(0, building.indexOf(step) + 1) + teardown);
    QVERIFY(system.route(tappedProcess) == nullptr);
}

void TapPlaybackTest::onlyStereoFloatsAreAccepted_data() {
    QTest::addColumn<StreamFormat>("format");
    QTest::addColumn<bool>("accepted");
    const StreamFormat good{48000, AudioEncoding::LinearPcm, SampleKind::Float, 32, 2};
    const auto row = [&](const char *name, bool accepted, auto change) {
        StreamFormat format = good;
        change(format);
        QTest::newRow(name) << format << accepted;
    };
    row("stereo floats", true, [](StreamFormat &) {});
    row("another rate", true, [](StreamFormat &format) { format.sampleRate = 7999.5; });
    row("mono", false, [](StreamFormat &format) { format.channelsPerFrame = 1; });
    row("surround", false, [](StreamFormat &format) { format.channelsPerFrame = 6; });
    row("integers", false, [](StreamFormat &format) {
        format.samples = SampleKind::Integer;
        format.bitsPerChannel = 16;
    });
    row("doubles", false, [](StreamFormat &format) { format.bitsPerChannel = 64; });
    row("encoded", false, [](StreamFormat &format) { format.encoding = AudioEncoding::Other; });
    row("no rate", false, [](StreamFormat &format) { format.sampleRate = 0; });
    row("nothing known", false, [](StreamFormat &format) { format = {}; });
}

void TapPlaybackTest::onlyStereoFloatsAreAccepted() {
    QFETCH(StreamFormat, format);
    QFETCH(bool, accepted);
    FakeAudioSystem system;
    system.format = format;
    QCOMPARE(buildError(system),
             accepted
                 ? QString()
                 : QStringLiteral("This app’s audio format is not supported by the mixer yet."));
    QCOMPARE(system.calls.constLast(), QStringLiteral("destroyTap"));
    QCOMPARE(system.calls.contains(QStringLiteral("createDevice")), accepted);
}

void TapPlaybackTest::withoutMemoryNothingIsMade() {
    FakeAudioSystem system;
    QCOMPARE(buildError(system, [] { return static_cast<AudioRingBuffer *>(nullptr); }),
             QStringLiteral("Cannot allocate audio buffer"));
    QCOMPARE(system.calls, QStringList());
}

void TapPlaybackTest::blocksCarryAudioThroughTheRing() {
    FakeAudioSystem system;
    std::optional<TapPlayback> route(std::in_place, system, tappedProcess);
    const FakeAudioRoute &host = *system.route(tappedProcess);
    const CaptureBlock capture = host.capture;
    const std::shared_ptr<RenderBlock> render = host.render.lock();
    std::array<float, 4> in{0.5F, -0.5F, 0.25F, -0.25F};
    std::array<float, 4> out{};
    const AudioBufferList input{1, {{2, sizeof(in), in.data()}}};
    AudioBufferList output{1, {{2, sizeof(out), out.data()}}};
    for (const bool hasGone : {false, true}) {
        if (hasGone) { // both may still be called, and keep the ring
            route->stop();
            route.reset();
        }
        out.fill(0);
        capture({}, &input, {}, nullptr, {});
        bool isSilence = false;
        QCOMPARE((*render)(isSilence, {}, 2, &output), noAudioError);
        QVERIFY(!isSilence);
        QVERIFY(in == out);
    }
}

static const RegisteredTest<TapPlaybackTest> registeredTapPlaybackTest;

#include "TapPlaybackTest.moc"
