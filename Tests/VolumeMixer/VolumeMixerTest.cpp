#include "VolumeMixer.h"
#include "Announcements.h"
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

/// How loud a route plays once its gain has settled; −1 without a route.
float heard(const FakeAudioSystem &audio, AudioObject process) {
    const FakeAudioRoute *route = audio.route(process);
    const auto render = route != nullptr ? route->render.lock() : nullptr;
    if (!render) {
        return -1;
    }
    float last = 0;
    for (int cycle = 0; cycle < 60; ++cycle) {
        std::array<float, 512> samples{};
        samples.fill(1);
        AudioBufferList list{1, {{1, sizeof samples, samples.data()}}};
        route->capture({}, &list, {}, nullptr, {});
        bool silence = false;
        (*render)(silence, {}, samples.size(), &list);
        last = samples.back();
    }
    return last;
}

} // namespace

class VolumeMixerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void listsWhatPlays_data();
    void listsWhatPlays();
    void sortsByCodePointsOfTheNormalisedNames();
    void refreshesEveryTwoSeconds();
    void anUnreadableListStays();
    void enablingRoutesAtTheSameLoudness();
    void aFailedRouteLeavesItsMessage();
    void withoutAnAudioSystemEnablingSaysSo();
    void levelAndMuteReachTheRing();
    void whatIsNotRoutedHasNoLevel();
    void routesAreGivenBack_data();
    void routesAreGivenBack();
    void anotherOutputWithoutRoutesIsNoNews();
    void aPausedProcessStaysWhileItIsRouted();
    void rowsKeepTheirIdentity();

private:
    QStringList names() const;
    void route(AudioObject process, float level);

    std::unique_ptr<FakeAudioSystem> m_audio;
    std::unique_ptr<FakeClock> m_clock;
    std::unique_ptr<VolumeMixer> m_mixer;
};

void VolumeMixerTest::init() {
    m_mixer.reset();
    m_audio = std::make_unique<FakeAudioSystem>();
    m_audio->list = QList{playing(1, 101), playing(2, 102)};
    m_audio->applications = {{1, {QStringLiteral("Music"), QStringLiteral("/apps/music.desktop")}},
                             {2, {QStringLiteral("Radio"), {}}},
                             {11, {QStringLiteral(" Good\n\u202eexe.gnp\u2069\t"), {}}},
                             {12, {QStringLiteral("\u200b\u200d \u2066"), {}}}};
    m_clock = std::make_unique<FakeClock>();
    m_mixer = std::make_unique<VolumeMixer>(*m_audio, *m_clock);
}

QStringList VolumeMixerTest::names() const {
    QStringList names;
    for (const AudioApp &app : m_mixer->apps()) {
        names.append(app.name);
    }
    return names;
}

void VolumeMixerTest::route(AudioObject process, float level) {
    m_mixer->enable(process);
    m_mixer->set(process, level);
    QVERIFY(m_mixer->levels().contains(process));
}

void VolumeMixerTest::listsWhatPlays_data() {
    QTest::addColumn<AudioProcess>("process");
    QTest::addColumn<QStringList>("names");
    const QString id = QStringLiteral("org.example.Player");
    const auto row = [](const char *name, const AudioProcess &process, const QString &expected) {
        QTest::newRow(name) << process
                            << (expected.isEmpty() ? QStringList() : QStringList(expected));
    };
    row("the application's own name", {1, 101, true, id}, QStringLiteral("Music"));
    row("the identifier of a process that is no application", {7, 101, true, id}, id);
    row("the process identifier where nothing else is known", {7, 4312, true, {}},
        QStringLiteral("Audio process 4312"));
    row("an empty identifier is none", {7, 4312, true, QString()},
        QStringLiteral("Audio process 4312"));
    row("a name that hides something", {11, 101, true, id}, QStringLiteral("Good exe.gnp"));
    row("a name of which nothing is seen", {12, 101, true, id}, id);
    row("a silent process is left out", {1, 101, false, id}, {});
    row("so is one that cannot be read", {1, 101, {}, id}, {});
    row("and one without a process identifier", {1, {}, true, id}, {});
    const auto own = std::int32_t(QCoreApplication::applicationPid());
    row("and the program itself", {1, own, true, id}, {});
    row("but not one that its sandbox has given the same number", {1, own, true, id, true},
        QStringLiteral("Music"));
}

void VolumeMixerTest::listsWhatPlays() {
    QFETCH(AudioProcess, process);
    QCOMPARE(m_mixer->apps().size(), 0);
    m_audio->list = QList{process};
    m_mixer->refresh();
    QTEST(names(), "names");
    QVERIFY(m_mixer->error().isNull());
}

void VolumeMixerTest::sortsByCodePointsOfTheNormalisedNames() {
    const QStringList listed{
        QStringLiteral("beta"),           QStringLiteral("Alpha"),
        QStringLiteral("alpha"),          QStringLiteral("\u00e9tude"),
        QStringLiteral("e\u0301a"),       QString::fromUtf8("\xF0\x9F\x8E\xB5"),
        QString::fromUtf8("\xEF\xBD\xA1")};
    m_audio->list->clear();
    for (int index = 0; index < listed.size(); ++index) {
        const auto process = AudioObject(index + 1);
        m_audio->list->append(playing(process, index + 1));
        m_audio->applications.insert(process, {listed[index], {}});
    }
    m_audio->list->append(playing(99, 3)); // the same name again
    m_audio->applications.insert(99, {QStringLiteral("alpha"), {}});
    m_mixer->refresh();
    const QList<int> order{1, 2, 2, 0, 4, 3, 6, 5};
    QStringList expected;
    for (const int index : order) {
        expected.append(listed[index]);
    }
    QCOMPARE(names(), expected);
    QCOMPARE(m_mixer->apps()[1].id, 3U);
    QCOMPARE(m_mixer->apps()[2].id, 99U);
    const auto process = [this](int row) {
        return m_mixer->appList()->index(row).data(AudioAppList::ProcessRole).toString();
    };
    QCOMPARE(process(1), QStringLiteral("process 3"));
    QCOMPARE(process(3), QString());
    m_audio->applications.insert(1, {QStringLiteral("alpha"), {}}); // the third of a shared name
    QSignalSpy changes(m_mixer->appList(), &QAbstractItemModel::dataChanged);
    m_mixer->refresh();
    QVERIFY(std::ranges::any_of(changes, [](const QList<QVariant> &change) {
        return change.at(2).value<QList<int>>().contains(AudioAppList::ProcessRole);
    }));
    m_audio->applications.insert(1, {QStringLiteral("beta"), {}});
    m_mixer->refresh();
    m_audio->list->removeLast();
    m_mixer->refresh();
    QCOMPARE(process(1), QString());
}

void VolumeMixerTest::refreshesEveryTwoSeconds() {
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
    m_audio->route(2)->running = false; // as a route that breaks
    m_clock->advance(2s);
    QVERIFY(!m_mixer->error().isNull());
    m_mixer.reset();
    QCOMPARE(m_clock->scheduledTasks(), 0);
}

void VolumeMixerTest::anUnreadableListStays() {
    m_mixer->refresh();
    route(1, 0.4F);
    m_audio->list.reset();
    m_mixer->refresh();
    QCOMPARE(names().size(), 2);
    QCOMPARE(m_mixer->levels().size(), 1U);
    QVERIFY(m_mixer->error().isNull());
}

void VolumeMixerTest::enablingRoutesAtTheSameLoudness() {
    m_mixer->refresh();
    m_mixer->enable(1);
    QCOMPARE(m_mixer->levels(), (std::map<AudioObject, float>{{1, 1.0F}}));
    QCOMPARE(heard(*m_audio, 1), 1.0F);
    m_mixer->set(1, 0.5F);
    const qsizetype calls = m_audio->calls.size();
    m_mixer->enable(1);
    QCOMPARE(m_audio->calls.size(), calls);
    QCOMPARE(m_mixer->levels().at(1), 0.5F);
}

void VolumeMixerTest::aFailedRouteLeavesItsMessage() {
    const Announcements announcements(*m_mixer);
    m_audio->failing = QStringLiteral("createDevice");
    m_audio->status = -50;
    m_mixer->enable(1);
    QCOMPARE(m_mixer->error(), QStringLiteral("Cannot create private audio route (-50)."));
    QVERIFY(m_mixer->levels().empty());
    QVERIFY(m_audio->route(1) == nullptr);
    m_audio->failing.clear();
    m_mixer->enable(1);
    m_mixer->refresh();
    QCOMPARE(m_mixer->error(), QStringLiteral("Cannot create private audio route (-50)."));
}

void VolumeMixerTest::withoutAnAudioSystemEnablingSaysSo() {
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

void VolumeMixerTest::levelAndMuteReachTheRing() {
    const auto isHeard = [this](float level) {
        return std::abs(heard(*m_audio, 1) - level) < 0.0001F;
    };
    m_mixer->refresh();
    route(1, 0.4F);
    QVERIFY(isHeard(0.4F));
    m_mixer->mute(1);
    QVERIFY(isHeard(0));
    QCOMPARE(m_mixer->levels().at(1), 0.4F);
    m_mixer->set(1, 0.6F);
    QVERIFY(isHeard(0));
    m_mixer->mute(1);
    QVERIFY(isHeard(0.6F));
    QVERIFY(m_mixer->muted().empty());
}

void VolumeMixerTest::whatIsNotRoutedHasNoLevel() {
    m_mixer->set(1, 0.5F);
    QVERIFY(m_mixer->levels().empty());
    m_mixer->mute(1);
    QVERIFY(m_mixer->levels().empty());
    m_mixer->release(1);
    QVERIFY(m_mixer->muted().empty());
    QVERIFY(m_audio->calls.isEmpty());
}

void VolumeMixerTest::routesAreGivenBack_data() {
    QTest::addColumn<std::function<void(VolumeMixer &, FakeAudioSystem &)>>("happening");
    QTest::addColumn<std::set<AudioObject>>("left");
    QTest::addColumn<QString>("error");
    using Happening = std::function<void(VolumeMixer &, FakeAudioSystem &)>;
    const auto row = [](const char *name, Happening happening, const std::set<AudioObject> &left,
                        const QString &error) {
        QTest::newRow(name) << std::move(happening) << left << error;
    };
    using Mixer = VolumeMixer;
    using Audio = FakeAudioSystem;
    row("by the person", [](Mixer &mixer, Audio &) { mixer.release(1); }, {2}, {});
    row("all of them", [](Mixer &mixer, Audio &) { mixer.releaseAll(); }, {}, {});
    row("when nothing happens they stay", [](Mixer &, Audio &) {}, {1, 2}, {});
    row(
        "another default output", [](Mixer &, Audio &audio) { audio.output = 41; }, {},
        outputChanged);
    row(
        "no default output any more", [](Mixer &, Audio &audio) { audio.output = 0; }, {},
        outputChanged);
    row(
        "an engine stops", [](Mixer &, Audio &audio) { audio.route(1)->running = false; }, {2},
        routeStopped);
    row("its process exits", [](Mixer &, Audio &audio) { audio.list->removeFirst(); }, {2}, {});
    row(
        "its process exits after its engine stopped",
        [](Mixer &, Audio &audio) {
            audio.route(1)->running = false;
            audio.list->removeFirst();
        },
        {2}, routeStopped);
}

void VolumeMixerTest::routesAreGivenBack() {
    using Happening = std::function<void(VolumeMixer &, FakeAudioSystem &)>;
    m_mixer->refresh();
    route(1, 0.4F);
    route(2, 0.5F);
    m_mixer->mute(1);
    m_mixer->mute(2);
    QSignalSpy errors(m_mixer.get(), &VolumeMixer::errorChanged);
    m_mixer->refresh();
    QFETCH(Happening, happening);
    happening(*m_mixer, *m_audio);
    m_mixer->refresh();
    m_mixer->refresh();
    QFETCH(std::set<AudioObject>, left);
    QTEST(m_mixer->error(), "error");
    QCOMPARE(errors.size(), m_mixer->error().isNull() ? 0 : 1);
    QCOMPARE(m_mixer->muted(), left);
    for (const AudioObject process : {1U, 2U}) {
        QCOMPARE(m_mixer->levels().contains(process), left.contains(process));
        QCOMPARE(m_audio->route(process) != nullptr, left.contains(process));
    }
}

void VolumeMixerTest::anotherOutputWithoutRoutesIsNoNews() {
    m_mixer->refresh();
    for (const AudioObject output : {0U, 41U}) {
        m_audio->output = output;
        Q_EMIT m_audio->changed();
    }
    m_mixer->enable(1);
    m_clock->advance(2s);
    QVERIFY(m_mixer->error().isNull());
    QVERIFY(m_audio->route(1) != nullptr);
    m_audio->output = 42;
    Q_EMIT m_audio->changed();
    QCOMPARE(m_mixer->error(), outputChanged);
}

void VolumeMixerTest::aPausedProcessStaysWhileItIsRouted() {
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

void VolumeMixerTest::rowsKeepTheirIdentity() {
    AudioAppList &list = *m_mixer->appList();
    const QAbstractItemModelTester tester(&list,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    m_mixer->refresh();
    m_mixer->enable(1);
    const QPersistentModelIndex music = list.index(0);
    QSignalSpy resets(&list, &QAbstractItemModel::modelReset);
    QSignalSpy changes(&list, &QAbstractItemModel::dataChanged);
    m_mixer->refresh();
    QCOMPARE(changes.size(), 0);
    QSignalSpy announced(&list, &QAbstractItemModel::dataChanged);
    m_mixer->set(1, 0.555F);
    QCOMPARE(announced.size(), 1);

    m_audio->applications.insert(1, {QStringLiteral("Tunes"), {}});
    m_audio->list->prepend(playing(3, 103)); // "Audio process 103" comes first
    m_mixer->refresh();
    QCOMPARE(names(), (QStringList{QStringLiteral("Audio process 103"), QStringLiteral("Radio"),
                                   QStringLiteral("Tunes")}));
    QVERIFY(music.isValid());
    QCOMPARE(music.row(), 2);
    QCOMPARE(music.data(AudioAppList::NameRole).toString(), QStringLiteral("Tunes"));
    QCOMPARE(music.data(AudioAppList::PercentRole).toInt(), 55);
    QVERIFY(music.data(AudioAppList::RoutedRole).toBool());
    QCOMPARE(resets.size(), 0);
    m_mixer->set(1, 0.29F);
    QCOMPARE(music.data(AudioAppList::PercentRole).toInt(), 29);
    m_audio->list->removeLast();
    m_audio->list->removeLast();
    m_mixer->refresh();
    QVERIFY(!music.isValid());
}

static const RegisteredTest<VolumeMixerTest> registeredVolumeMixerTest;

#include "VolumeMixerTest.moc"
