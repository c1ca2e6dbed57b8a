#include "RealMedia.h"

#include <QDir>
#include <QProcess>

using namespace perchly;

namespace {

const QString song = QStringLiteral("Tab song 🎵");

/// A browser without a window that shows a page of the tests.
class Browser {
public:
    explicit Browser(const QString &query = {}) {
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.start(
            QStringLiteral("chromium"),
            {QStringLiteral("--headless"), QStringLiteral("--no-sandbox"),
             QStringLiteral("--disable-gpu"), QStringLiteral("--disable-quic"),
             QStringLiteral("--no-first-run"), QStringLiteral("--disable-background-networking"),
             QStringLiteral("--disable-component-update"), QStringLiteral("--disable-sync"),
             QStringLiteral("--autoplay-policy=no-user-gesture-required"),
             QStringLiteral("--user-data-dir=") + QDir::tempPath() + QStringLiteral("/browser"),
             QStringLiteral("file://" TAB_PAGE) + query});
    }
    ~Browser() {
        m_process.terminate();
        if (!m_process.waitForFinished(5000)) {
            m_process.kill();
            m_process.waitForFinished();
        }
    }

private:
    QProcess m_process;
};

} // namespace

class BrowserTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aTabIsFollowedAndObeys();
    void aTabThatIgnoresCommandsIsTold();
};

void BrowserTest::aTabIsFollowedAndObeys() {
    const Browser browser;
    RealMedia media;
    const ShelfModel &model = media.model;
    QVERIFY(media.waitForSession(song));
    QCOMPARE(model.mediaSource(), QStringLiteral("Chromium"));
    QCOMPARE(model.musicArtist(), QStringLiteral("Tab singer"));
    QVERIFY(model.mediaIsBrowser() && model.mediaCanSeek() && model.playing());
    for (const char *word : {"playpause", "forward", "rewind"}) {
        QVERIFY(media.press(word));
        QCOMPARE(model.controlError(), QString());
        QVERIFY(!model.playing());
    }
    QVERIFY(media.press("playpause"));
    QCOMPARE(model.controlError(), QString());
    QVERIFY(model.playing());
    QVERIFY(media.press("next track"));
    QCOMPARE(model.controlError(), QString());
    QVERIFY(media.waitForSession(QStringLiteral("Next song")));
}

void BrowserTest::aTabThatIgnoresCommandsIsTold() {
    const Browser browser(QStringLiteral("?ignores"));
    RealMedia media;
    QVERIFY(media.waitForSession(song));
    for (const char *word : {"playpause", "forward"}) {
        QVERIFY(media.press(word));
        QCOMPARE(media.model.controlError(),
                 QStringLiteral("Chromium did not apply this media command. The tab may be closed, "
                                "buffering, or unable to accept remote controls. Open the player "
                                "and try again."));
    }
    QVERIFY(media.press("next track"));
    QCOMPARE(media.model.controlError(), QString());
    QVERIFY(media.press("previous track")); // which the tab does not offer
    QCOMPARE(media.model.controlError(),
             QStringLiteral("Chromium could not receive this playback command."));
}

QTEST_GUILESS_MAIN(BrowserTest)
#include "BrowserTest.moc"
