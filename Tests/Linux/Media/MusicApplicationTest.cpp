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
    void initTestCase() {
        qputenv("XDG_DATA_DIRS", "/nowhere/at/all");
        qputenv("XDG_CONFIG_DIRS", "/nowhere/at/all");
    }

    void opensTheBestMusicPlayer() {
        FakeApplications applications;
        DefaultMusicPlayer player(applications);
        QString error;
        const auto open = [&] { player.open([&](const QString &reason) { error = reason; }); };
        open();
        QTRY_COMPARE(error, QStringLiteral("No music application is installed."));
        install("films", "AudioVideo;Video;Player;", "audio/mpeg;");
        chooseApplication("audio/mpeg", "films");
        QTRY_COMPARE(found(), std::string("films")); // for lack of a music player
        install("b.mixer", "Audio;Mixer;", "audio/mpeg;");
        install("c.tunes", "AudioVideo;Audio;", "audio/x-whatever;");
        install("d.first", "Audio;Player;");
        QTRY_COMPARE(found(), std::string("c.tunes"));
        install("e.flac", "Audio;Player;", "audio/flac;");
        chooseApplication("audio/flac", "e.flac");
        QTRY_COMPARE(found(), std::string("e.flac"));
        open();
        QTRY_COMPARE(applications.opened, QStringList{desktopEntryPath(QStringLiteral("e.flac"))});
    }

    void recognizesPlayersByName() {
        QVERIFY(isPlayerOf("org.example.Tunes", "org.mpris.MediaPlayer2.tunes.instance42", ""));
        QVERIFY(isPlayerOf("org.example.Tunes", "x", "org.example.tunes"));
        QVERIFY(!isPlayerOf("org.example.Tunes", "org.mpris.MediaPlayer2.tune", "radio"));
        QVERIFY(!isPlayerOf("", "org.mpris.MediaPlayer2.radio", ""));
    }
};

QTEST_GUILESS_MAIN(MusicApplicationTest)
#include "MusicApplicationTest.moc"
