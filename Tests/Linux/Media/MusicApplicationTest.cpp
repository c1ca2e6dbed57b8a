#include "MusicApplication.h"
#include "Applications.h"
#include "DefaultMusicPlayer.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace perchly;

namespace {

class NotedApplications : public Applications {
public:
    void open(const QString &path, Completion) override { opened.append(path); }
    void openUrl(const QUrl &, Completion) override {}
    QImage icon(const QString &, int) override { return {}; }

    QStringList opened;
};

QString entryPath(const char *name) {
    return qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/applications/") +
           QString::fromUtf8(name) + QStringLiteral(".desktop");
}

void write(const QString &path, const QByteArray &text) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

void install(const char *name, const QByteArray &categories, const QByteArray &types = {}) {
    write(entryPath(name), "[Desktop Entry]\nType=Application\nName=X\nExec=true\nMimeType=" +
                               types + "\nCategories=" + categories + "\n");
}

void chooseFor(const QByteArray &type, const QByteArray &name) {
    write(qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/mimeapps.list"),
          "[Default Applications]\n" + type + "=" + name + ".desktop\n");
}

std::string found() {
    return findMusicApplication().value_or(MusicApplication{"nothing", {}}).identifier;
}

} // namespace

class MusicApplicationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void nothingIsInstalled();
    void thePersonsChoiceComesFirst();
    void aFilmPlayerIsTheLastResort();
    void knowsMusicPlayers_data();
    void knowsMusicPlayers();
    void knowsAPlayerByItsNames_data();
    void knowsAPlayerByItsNames();
    void opensIt();
};

void MusicApplicationTest::initTestCase() {
    qputenv("XDG_DATA_DIRS", "/nowhere/at/all"); // nothing but what the test installs
    qputenv("XDG_CONFIG_DIRS", "/nowhere/at/all");
}

void MusicApplicationTest::init() {
    QDir(qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/applications"))
        .removeRecursively();
    QFile::remove(qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/mimeapps.list"));
}

void MusicApplicationTest::nothingIsInstalled() {
    QTRY_COMPARE(found(), std::string("nothing"));
}

void MusicApplicationTest::thePersonsChoiceComesFirst() {
    install("a.first", "Audio;Player;", "audio/ogg;");
    QTRY_COMPARE(found(), std::string("a.first"));
    install("b.flac", "Audio;Player;", "audio/flac;");
    chooseFor("audio/flac", "b.flac");
    QTRY_COMPARE(found(), std::string("b.flac"));
    install("c.mpeg", "Audio;Player;", "audio/mpeg;");
    chooseFor("audio/mpeg", "c.mpeg");
    QTRY_COMPARE(found(), std::string("c.mpeg"));
}

void MusicApplicationTest::aFilmPlayerIsTheLastResort() {
    install("films", "AudioVideo;Video;Player;", "audio/mpeg;");
    chooseFor("audio/mpeg", "films");
    QTRY_COMPARE(found(), std::string("films"));
    install("tunes", "AudioVideo;Audio;", "audio/x-whatever;");
    QTRY_COMPARE(found(), std::string("tunes"));
}

void MusicApplicationTest::knowsMusicPlayers_data() {
    QTest::addColumn<std::string>("categories");
    QTest::addColumn<std::string>("types");
    QTest::addColumn<bool>("plays");
    const auto row = [](const char *name, const char *categories, const char *types, bool plays) {
        QTest::newRow(name) << std::string(categories) << std::string(types) << plays;
    };
    row("a player", "Qt;Player", "", true);
    row("one by its types", "AudioVideo;", "text/plain;audio/mpeg", true);
    row("a film player", "Player;Video;", "audio/mpeg;", false);
    row("a mixer", "Audio;Mixer;", "audio/mpeg;", false);
    row("a name that only resembles", "MediaPlayer;", "x-audio/mpeg;", false);
    row("nothing said", "", "", false);
}

void MusicApplicationTest::knowsMusicPlayers() {
    QFETCH(const std::string, categories);
    QFETCH(const std::string, types);
    QTEST(isMusicPlayer(categories, types), "plays");
}

void MusicApplicationTest::knowsAPlayerByItsNames_data() {
    QTest::addColumn<std::string>("identifier");
    QTest::addColumn<std::string>("bus");
    QTest::addColumn<std::string>("entry");
    QTest::addColumn<bool>("same");
    const auto row = [](const char *name, const char *identifier, const char *bus,
                        const char *entry, bool same) {
        QTest::newRow(name) << std::string(identifier)
                            << "org.mpris.MediaPlayer2." + std::string(bus) << std::string(entry)
                            << same;
    };
    row("its entry", "org.example.Tunes", "x", "org.example.Tunes", true);
    row("another letter case", "org.example.Tunes", "x", "org.example.tunes", true);
    row("its last word", "org.example.Tunes", "tunes", "", true);
    row("one of several", "tunes", "tunes.instance42", "", true);
    row("its whole name", "org.example.Tunes", "org.example.Tunes", "", true);
    row("half a word", "org.example.Tunes", "tune", "", false);
    row("another one", "org.example.Tunes", "radio", "radio", false);
    row("no application", "", "tunes", "", false);
}

void MusicApplicationTest::knowsAPlayerByItsNames() {
    QFETCH(const std::string, identifier);
    QFETCH(const std::string, bus);
    QFETCH(const std::string, entry);
    QTEST(isPlayerOf(identifier, bus, entry), "same");
}

void MusicApplicationTest::opensIt() {
    QTRY_COMPARE(found(), std::string("nothing"));
    NotedApplications applications;
    DefaultMusicPlayer player(applications);
    player.open();
    QTest::qWait(100);
    QCOMPARE(applications.opened, QStringList());
    install("tunes", "Audio;Player;");
    QTRY_COMPARE(found(), std::string("tunes"));
    player.open();
    QTRY_COMPARE(applications.opened, QStringList{entryPath("tunes")});
}

QTEST_GUILESS_MAIN(MusicApplicationTest)
#include "MusicApplicationTest.moc"
