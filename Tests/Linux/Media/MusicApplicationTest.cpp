#include "MusicApplication.h"
#include "DefaultMusicPlayer.h"
#include "FakePlatform.h"
#include "TestFiles.h"

using namespace perchly;

namespace {

void install(const char *name, const QByteArray &categories, const QByteArray &types = {}) {
    installApplication(QString::fromUtf8(name),
                       "Exec=true\nMimeType=" + types + "\nCategories=" + categories);
}

std::string found() {
    return findMusicApplication().value_or(MusicApplication{"nothing", {}}).identifier;
}

} // namespace

class MusicApplicationTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// Nothing is installed but what the test installs.
    void initTestCase() {
        qputenv("XDG_DATA_DIRS", "/nowhere/at/all");
        qputenv("XDG_CONFIG_DIRS", "/nowhere/at/all");
    }

    void init() {
        QDir(QFileInfo(desktopEntryPath({})).path()).removeRecursively();
        QFile::remove(qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/mimeapps.list"));
    }

    void thePersonsChoiceComesFirst() {
        install("a.first", "Audio;Player;", "audio/ogg;");
        QTRY_COMPARE(found(), std::string("a.first"));
        install("b.flac", "Audio;Player;", "audio/flac;");
        chooseApplication("audio/flac", "b.flac");
        QTRY_COMPARE(found(), std::string("b.flac"));
        install("c.mpeg", "Audio;Player;", "audio/mpeg;");
        chooseApplication("audio/mpeg", "c.mpeg");
        QTRY_COMPARE(found(), std::string("c.mpeg"));
    }

    void aFilmPlayerIsTheLastResort() {
        install("films", "AudioVideo;Video;Player;", "audio/mpeg;");
        chooseApplication("audio/mpeg", "films");
        QTRY_COMPARE(found(), std::string("films"));
        install("tunes", "AudioVideo;Audio;", "audio/x-whatever;");
        QTRY_COMPARE(found(), std::string("tunes"));
    }

    void knowsMusicPlayers() {
        QVERIFY(isMusicPlayer("Qt;Player", ""));
        QVERIFY(isMusicPlayer("AudioVideo;", "text/plain;audio/mpeg"));
        QVERIFY2(!isMusicPlayer("Audio;Mixer;", "audio/mpeg;"), "a mixer");
        QVERIFY2(!isMusicPlayer("MediaPlayer;", "x-audio/mpeg;"), "names that only resemble");
    }

    void knowsAPlayerByItsNames_data() {
        QTest::addColumn<std::string>("identifier");
        QTest::addColumn<std::string>("bus");
        QTest::addColumn<std::string>("entry");
        QTest::addColumn<bool>("same");
        const auto row = [](const char *name, const char *identifier, const char *bus,
                            const char *entry, bool same) {
            QTest::newRow(name) << std::string(identifier)
                                << "org.mpris.MediaPlayer2." + std::string(bus)
                                << std::string(entry) << same;
        };
        row("another letter case", "org.example.Tunes", "x", "org.example.tunes", true);
        row("its last word", "org.example.Tunes", "tunes", "", true);
        row("one of several", "tunes", "tunes.instance42", "", true);
        row("half a word", "org.example.Tunes", "tune", "", false);
        row("another one", "org.example.Tunes", "radio", "radio", false);
    }

    void knowsAPlayerByItsNames() {
        QFETCH(const std::string, identifier);
        QFETCH(const std::string, bus);
        QFETCH(const std::string, entry);
        QTEST(isPlayerOf(identifier, bus, entry), "same");
    }

    void opensIt() {
        QTRY_COMPARE(found(), std::string("nothing"));
        FakeApplications applications;
        DefaultMusicPlayer player(applications);
        player.open();
        QTest::qWait(100);
        QCOMPARE(applications.opened, QStringList());
        install("tunes", "Audio;Player;");
        QTRY_COMPARE(found(), std::string("tunes"));
        player.open();
        QTRY_COMPARE(applications.opened, QStringList{desktopEntryPath(QStringLiteral("tunes"))});
    }
};

QTEST_GUILESS_MAIN(MusicApplicationTest)
#include "MusicApplicationTest.moc"
