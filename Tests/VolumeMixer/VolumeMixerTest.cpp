#include "VolumeMixer.h"
#include "FakeAudio.h"
#include "FakeClock.h"
#include "RowFields.h"
#include "TestRegistry.h"

#include <QCoreApplication>
#include <QTest>

using namespace perchly;
using namespace std::chrono_literals;

namespace {

const QString outputChanged =
    QStringLiteral("Output device changed. App audio was restored; enable mixing again for this "
                   "output.");
const QString routeStopped =
    QStringLiteral("An audio route stopped. Original app output has been restored.");

AudioProcess playing(AudioObject object, std::int32_t pid) {
    return {.object = object, .pid = pid, .isRunningOutput = true, .bundleId = {}};
}

/// The level of a routed process once its gain has settled.
float heard(const FakeAudioSystem &audio, AudioObject process) {
    std::array<float, 30'000> samples{};
    samples.fill(1);
    AudioBufferList list{1, {{1, sizeof samples, samples.data()}}};
    perchly_ring_push(audio.routeOf(process)->ring.get(), &list);
    perchly_ring_pull(audio.routeOf(process)->ring.get(), &list, samples.size());
    return std::round(samples.back() * 1000) / 1000;
}

} // namespace

class VolumeMixerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        m_mixer.reset();
        m_audio = std::make_unique<FakeAudioSystem>();
        m_audio->list = QList{playing(1, 101), playing(2, 102)};
        m_audio->applications = {
            {1, {QStringLiteral("Music"), QStringLiteral("/apps/music.desktop")}},
            {2, {QStringLiteral("Radio"), {}}},
            {11, {QStringLiteral(" Good\n\u202eexe.gnp\u2069\t"), {}}},
            {12, {QStringLiteral("\u200b\u200d \u2066"), {}}}};
        m_clock = std::make_unique<FakeClock>();
        m_mixer = std::make_unique<VolumeMixer>(*m_audio, *m_clock);
    }

    void playingProgramsAreListed() {
        const QString id = QStringLiteral("org.example.Player");
        const auto own = std::int32_t(QCoreApplication::applicationPid());
        struct Row {
            AudioProcess process;
            QString name;
        };
        for (const Row &row : {
                 Row{{1, 101, true, id}, QStringLiteral("Music")},
                 Row{{7, 101, true, id}, id}, // unknown application
                 Row{{7, 4312, true, {}}, QStringLiteral("Audio process 4312")},
                 Row{{11, 101, true, id}, QStringLiteral("Good exe.gnp")},
                 Row{{12, 101, true, id}, id}, // name without visible characters
                 Row{{1, 101, false, id}, {}}, Row{{1, 101, {}, id}, {}},
                 Row{{1, {}, true, id}, {}}, Row{{1, own, true, id}, {}},
                 Row{{1, own, true, id, true}, QStringLiteral("Music")}, // our PID in a sandbox
             }) {
            m_audio->list = QList{row.process};
            m_mixer->refresh();
            QCOMPARE(names(), row.name.isEmpty() ? QStringList() : QStringList(row.name));
        }
    }

    void namesAreNormalisedAndSortedByCodePoints() {
        const QStringList sorted{QStringLiteral("Alpha"),    QStringLiteral("alpha"),
                                 QStringLiteral("e\u0301a"), QStringLiteral("\u00e9tude"),
                                 QStringLiteral("\uff61"),   QStringLiteral("\U0001f3b5")};
        m_audio->list->clear();
        for (const QString &name : sorted) {
            const auto process = AudioObject(m_audio->list->size() + 1);
            m_audio->list->prepend(playing(process, std::int32_t(process)));
            m_audio->applications.insert(process, {name, {}});
        }
        m_mixer->refresh();
        QCOMPARE(names(), sorted);
    }

    void programsWithTheSameNameShowTheirPids() {
        m_audio->applications.insert(2, {QStringLiteral("Music"), {}});
        m_mixer->refresh();
        QCOMPARE(m_mixer->appList()->index(0).data(AudioAppList::ProcessRole).toString(),
                 QStringLiteral("process 101"));
    }

    void refreshesTwoSecondsAfterAChange() {
        m_clock->advance(1999ms);
        QCOMPARE(names(), QStringList());
        m_clock->advance(1ms);
        QCOMPARE(names(), (QStringList{QStringLiteral("Music"), QStringLiteral("Radio")}));
        QCOMPARE(m_clock->scheduledTasks(), 0);
        m_audio->list->removeFirst();
        Q_EMIT m_audio->changed();
        m_clock->advance(2s);
        QCOMPARE(names(), QStringList(QStringLiteral("Radio")));
        m_mixer->enable(2);
        m_audio->routeOf(2)->running = false; // without a signal
        m_clock->advance(2s);
        QCOMPARE(m_mixer->error(), routeStopped);
        m_audio->list.reset(); // unreadable
        m_mixer->refresh();
        QCOMPARE(names(), QStringList(QStringLiteral("Radio")));
    }

    void failuresAreShown() {
        m_audio->failure = QStringLiteral("Cannot create private audio route (-50).");
        m_mixer->enable(1);
        QVERIFY(m_mixer->levels().empty());
        QCOMPARE(m_mixer->error(), m_audio->failure);
        m_audio->routable = false;
        m_mixer->refresh();
        QCOMPARE(names(), QStringList());
        m_mixer->enable(1);
        QCOMPARE(m_mixer->error(),
                 QStringLiteral("Per-app audio needs PipeWire, which is not running."));
        m_audio->routable = true;
        Q_EMIT m_audio->changed();
        QCOMPARE(names().size(), 2);
    }

    void levelAndMuteReachTheRing() {
        m_mixer->set(1, 0.5F);
        m_mixer->mute(1);
        QVERIFY(m_mixer->levels().empty()); // not routed
        QVERIFY(m_mixer->muted().empty());
        m_mixer->enable(1);
        QCOMPARE(heard(*m_audio, 1), 1.0F);
        m_mixer->set(1, 0.29F);
        m_mixer->enable(1); // no effect on a routed process
        QCOMPARE(heard(*m_audio, 1), 0.29F);
        m_mixer->refresh();
        QCOMPARE(m_mixer->appList()->index(0).data(AudioAppList::PercentRole).toInt(), 29);
        m_mixer->mute(1);
        m_mixer->set(1, 0.6F);
        QCOMPARE(heard(*m_audio, 1), 0.0F);
        m_mixer->mute(1);
        QCOMPARE(heard(*m_audio, 1), 0.6F);
    }

    void releaseAndOutputChangesEndRoutes() {
        struct Row {
            std::function<void(VolumeMixer &, FakeAudioSystem &)> event;
            std::set<AudioObject> left;
            QString error;
        };
        using Mixer = VolumeMixer;
        using Audio = FakeAudioSystem;
        for (const Row &row : {
                 Row{[](Mixer &, Audio &) {}, {1, 2}, {}},
                 Row{[](Mixer &mixer, Audio &) { mixer.release(1); }, {2}, {}},
                 Row{[](Mixer &mixer, Audio &) { mixer.releaseAll(); }, {}, {}},
                 Row{[](Mixer &, Audio &audio) { audio.output = 41; }, {}, outputChanged},
                 Row{[](Mixer &, Audio &audio) { audio.output = 0; }, {}, outputChanged},
                 Row{[](Mixer &, Audio &audio) { audio.routeOf(1)->running = false; },
                     {2},
                     routeStopped},
                 Row{[](Mixer &, Audio &audio) { audio.list->removeFirst(); }, {2}, {}},
             }) {
            init();
            m_mixer->refresh();
            for (const AudioObject process : {1U, 2U}) {
                m_mixer->enable(process);
                m_mixer->mute(process);
            }
            row.event(*m_mixer, *m_audio);
            m_mixer->refresh();
            m_mixer->refresh(); // the message stays
            QCOMPARE(m_mixer->error(), row.error);
            QCOMPARE(m_mixer->muted(), row.left);
            for (const AudioObject process : {1U, 2U}) {
                QCOMPARE(m_mixer->levels().contains(process), row.left.contains(process));
                QCOMPARE(m_audio->routeOf(process) != nullptr, row.left.contains(process));
            }
        }
    }

    void outputChangeWithoutRoutesIsNoError() {
        m_mixer->refresh();
        for (const AudioObject output : {0U, 41U}) {
            m_audio->output = output;
            Q_EMIT m_audio->changed();
        }
        m_mixer->enable(1);
        m_clock->advance(2s);
        QVERIFY(m_mixer->error().isEmpty());
        QVERIFY(m_audio->routeOf(1));
        m_audio->output = 42;
        Q_EMIT m_audio->changed();
        QCOMPARE(m_mixer->error(), outputChanged);
    }

    void pausedProgramIsListedWhileRouted() {
        m_mixer->refresh();
        m_mixer->enable(1);
        for (AudioProcess &process : *m_audio->list) {
            process.isRunningOutput = false;
        }
        m_mixer->refresh();
        QCOMPARE(names(), QStringList(QStringLiteral("Music")));
        m_mixer->release(1);
        m_mixer->refresh();
        QCOMPARE(names(), QStringList());
    }

private:
    QStringList names() const { return fieldsOf(*m_mixer->appList(), "name"); }

    std::unique_ptr<FakeAudioSystem> m_audio;
    std::unique_ptr<FakeClock> m_clock;
    std::unique_ptr<VolumeMixer> m_mixer;
};

static const RegisteredTest<VolumeMixerTest> registeredVolumeMixerTest;

#include "VolumeMixerTest.moc"
