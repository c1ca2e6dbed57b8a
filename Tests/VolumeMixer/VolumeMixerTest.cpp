#include "VolumeMixer.h"
#include "FakeAudio.h"
#include "FakeClock.h"
#include "TestRegistry.h"

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QSignalSpy>
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

/// How loud a route plays once its gain has settled; -1 without a route.
float heard(const FakeAudioSystem &audio, AudioObject process) {
    const FakeAudioRoute *route = audio.routeOf(process);
    float last = -1;
    for (int cycle = 0; route != nullptr && cycle < 60; ++cycle) {
        std::array<float, 512> samples{};
        samples.fill(1);
        AudioBufferList list{1, {{1, sizeof samples, samples.data()}}};
        perchly_ring_push(route->ring.get(), &list);
        perchly_ring_pull(route->ring.get(), &list, samples.size());
        last = std::round(samples.back() * 1000) / 1000;
    }
    return last;
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

    void listsPlayingPrograms_data() {
        QTest::addColumn<AudioProcess>("process");
        QTest::addColumn<QString>("name");
        const QString id = QStringLiteral("org.example.Player");
        const auto own = std::int32_t(QCoreApplication::applicationPid());
        const auto row = [](const char *tag, const AudioProcess &process, const QString &name) {
            QTest::newRow(tag) << process << name;
        };
        row("by the application's name", {1, 101, true, id}, QStringLiteral("Music"));
        row("by the identifier", {7, 101, true, id}, id);
        row("by the pid", {7, 4312, true, QString()}, QStringLiteral("Audio process 4312"));
        row("without hidden characters", {11, 101, true, id}, QStringLiteral("Good exe.gnp"));
        row("not by an invisible name", {12, 101, true, id}, id);
        row("but not silent ones", {1, 101, false, id}, {});
        row("but not unreadable ones", {1, 101, {}, id}, {});
        row("but not those without a pid", {1, {}, true, id}, {});
        row("but not itself", {1, own, true, id}, {});
        row("also with its own pid in a sandbox", {1, own, true, id, true},
            QStringLiteral("Music"));
    }

    void listsPlayingPrograms() {
        QFETCH(AudioProcess, process);
        QFETCH(QString, name);
        m_audio->list = QList{process};
        m_mixer->refresh();
        QCOMPARE(names(), name.isEmpty() ? QStringList() : QStringList(name));
    }

    void sortsByCodePointsOfTheNormalisedNames() {
        const QStringList sorted{QStringLiteral("Alpha"),      QStringLiteral("alpha"),
                                 QStringLiteral("beta"),       QStringLiteral("e\u0301a"),
                                 QStringLiteral("\u00e9tude"), QStringLiteral("\uff61"),
                                 QStringLiteral("\U0001f3b5")};
        m_audio->list->clear();
        for (AudioObject process = 1; process <= 7; ++process) {
            m_audio->list->prepend(playing(process, std::int32_t(process)));
            m_audio->applications.insert(process, {sorted[qsizetype(process) - 1], {}});
        }
        m_mixer->refresh();
        QCOMPARE(names(), sorted);
    }

    void programsOfOneNameShowTheirPids() {
        m_audio->applications.insert(2, {QStringLiteral("Music"), {}});
        m_mixer->refresh();
        const auto process = [this] {
            return m_mixer->appList()->index(0).data(AudioAppList::ProcessRole).toString();
        };
        QCOMPARE(process(), QStringLiteral("process 101"));
        m_audio->list->removeLast();
        m_mixer->refresh();
        QCOMPARE(process(), QString());
    }

    void refreshesTwoSecondsAfterAChange() {
        m_clock->advance(1999ms);
        QCOMPARE(names(), QStringList());
        m_clock->advance(1ms);
        QCOMPARE(names(), (QStringList{QStringLiteral("Music"), QStringLiteral("Radio")}));
        QCOMPARE(m_clock->scheduledTasks(), 0); // nothing can change without being announced
        m_audio->list->removeFirst();
        Q_EMIT m_audio->changed();
        m_clock->advance(2s);
        QCOMPARE(names(), QStringList(QStringLiteral("Radio")));
        m_mixer->enable(2);
        m_audio->routeOf(2)->running = false; // not announced
        m_clock->advance(2s);
        QCOMPARE(m_mixer->error(), routeStopped);
        m_audio->list.reset(); // it cannot be read
        m_mixer->refresh();
        QCOMPARE(names(), QStringList(QStringLiteral("Radio")));
        m_mixer.reset();
        QCOMPARE(m_clock->scheduledTasks(), 0);
    }

    void aFailedRouteLeavesItsMessage() {
        m_audio->failure = QStringLiteral("Cannot create private audio route (-50).");
        m_mixer->enable(1);
        QVERIFY(m_mixer->levels().empty());
        QCOMPARE(m_mixer->error(), m_audio->failure);
        m_audio->failure.clear();
        m_mixer->enable(1);
        QVERIFY(m_audio->routeOf(1));
        QVERIFY(!m_mixer->error().isEmpty());
    }

    void withoutAnAudioSystemEnablingSaysSo() {
        m_audio->routable = false;
        m_mixer->refresh();
        QVERIFY(!m_mixer->supported());
        QCOMPARE(names(), QStringList());
        m_mixer->enable(1);
        QCOMPARE(m_mixer->error(), QStringLiteral("Per-app audio requires macOS 14.2 or later."));
        m_audio->routable = true;
        Q_EMIT m_audio->changed();
        QVERIFY(m_mixer->supported());
        QCOMPARE(names().size(), 2);
    }

    void levelAndMuteReachTheRing() {
        m_mixer->set(1, 0.5F);
        m_mixer->mute(2);
        QVERIFY(m_mixer->levels().empty()); // not routed
        m_mixer->release(2);
        QVERIFY(m_mixer->muted().empty());
        m_mixer->enable(1);
        QCOMPARE(heard(*m_audio, 1), 1.0F);
        m_mixer->set(1, 0.4F);
        m_mixer->enable(1); // again
        QCOMPARE(heard(*m_audio, 1), 0.4F);
        m_mixer->mute(1);
        QCOMPARE(heard(*m_audio, 1), 0.0F);
        QCOMPARE(m_mixer->levels().at(1), 0.4F);
        m_mixer->set(1, 0.6F);
        QCOMPARE(heard(*m_audio, 1), 0.0F);
        m_mixer->mute(1);
        QCOMPARE(heard(*m_audio, 1), 0.6F);
    }

    void routesEnd_data() {
        using Event = std::function<void(VolumeMixer &, FakeAudioSystem &)>;
        using Mixer = VolumeMixer;
        using Audio = FakeAudioSystem;
        QTest::addColumn<Event>("event");
        QTest::addColumn<std::set<AudioObject>>("left");
        QTest::addColumn<QString>("error");
        const auto row = [](const char *name, Event event, const std::set<AudioObject> &left,
                            const QString &error = {}) {
            QTest::newRow(name) << std::move(event) << left << error;
        };
        row("not by themselves", [](Mixer &, Audio &) {}, {1, 2});
        row("when released", [](Mixer &mixer, Audio &) { mixer.release(1); }, {2});
        row("when all are released", [](Mixer &mixer, Audio &) { mixer.releaseAll(); }, {});
        row(
            "on another output", [](Mixer &, Audio &audio) { audio.output = 41; }, {},
            outputChanged);
        row(
            "without an output", [](Mixer &, Audio &audio) { audio.output = 0; }, {},
            outputChanged);
        row(
            "when they stop", [](Mixer &, Audio &audio) { audio.routeOf(1)->running = false; }, {2},
            routeStopped);
        row("with their process", [](Mixer &, Audio &audio) { audio.list->removeFirst(); }, {2});
    }

    void routesEnd() {
        using Event = std::function<void(VolumeMixer &, FakeAudioSystem &)>;
        m_mixer->refresh();
        for (const AudioObject process : {1U, 2U}) {
            m_mixer->enable(process);
            m_mixer->mute(process);
        }
        QSignalSpy errors(m_mixer.get(), &VolumeMixer::errorChanged);
        QFETCH(Event, event);
        event(*m_mixer, *m_audio);
        m_mixer->refresh();
        m_mixer->refresh();
        QFETCH(std::set<AudioObject>, left);
        QTEST(m_mixer->error(), "error");
        QCOMPARE(errors.size(), m_mixer->error().isEmpty() ? 0 : 1);
        QCOMPARE(m_mixer->muted(), left);
        for (const AudioObject process : {1U, 2U}) {
            QCOMPARE(m_mixer->levels().contains(process), left.contains(process));
            QCOMPARE(m_audio->routeOf(process) != nullptr, left.contains(process));
        }
    }

    void anotherOutputWithoutRoutesIsSilent() {
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

    void aPausedProgramStaysWhileItIsRouted() {
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

    void rowsKeepTheirIdentity() {
        AudioAppList &list = *m_mixer->appList();
        const QAbstractItemModelTester tester(
            &list, QAbstractItemModelTester::FailureReportingMode::QtTest);
        m_mixer->refresh();
        m_mixer->enable(1);
        const QPersistentModelIndex music = list.index(0);
        QSignalSpy changes(&list, &QAbstractItemModel::dataChanged);
        m_mixer->refresh();
        QCOMPARE(changes.size(), 0);
        m_mixer->set(1, 0.29F);
        QCOMPARE(changes.size(), 1);
        QCOMPARE(music.data(AudioAppList::PercentRole).toInt(), 29);
        m_audio->applications.insert(1, {QStringLiteral("Tunes"), {}});
        m_audio->list->prepend(playing(3, 103)); // "Audio process 103" comes first
        m_mixer->refresh();
        QCOMPARE(music.row(), 2);
        QCOMPARE(music.data(AudioAppList::NameRole).toString(), QStringLiteral("Tunes"));
        QVERIFY(music.data(AudioAppList::RoutedRole).toBool());
    }

private:
    QStringList names() const {
        QStringList names;
        for (const AudioApp &app : m_mixer->apps()) {
            names.append(app.name);
        }
        return names;
    }

    std::unique_ptr<FakeAudioSystem> m_audio;
    std::unique_ptr<FakeClock> m_clock;
    std::unique_ptr<VolumeMixer> m_mixer;
};

static const RegisteredTest<VolumeMixerTest> registeredVolumeMixerTest;

#include "VolumeMixerTest.moc"
