#include "BusPlayerNotifications.h"
#include "FakeHosts.h"
#include "MediaTracking.h"
#include "ProcessScriptHost.h"
#include "QtClock.h"
#include "ShelfModel.h"

#include <QDir>
#include <QProcess>
#include <QTest>

using namespace perchly;

namespace {

/// A headless browser that plays the test page while this object lives.
class Browser {
public:
    Browser() {
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.start(QStringLiteral("chromium"),
                        {QStringLiteral("--headless"), QStringLiteral("--no-sandbox"),
                         QStringLiteral("--disable-background-networking"),
                         QStringLiteral("--autoplay-policy=no-user-gesture-required"),
                         QStringLiteral("--user-data-dir=%1/browser").arg(QDir::tempPath()),
                         QStringLiteral("file://" TAB_PAGE)});
    }
    ~Browser() {
        m_process.terminate();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
};

/// Tracks players with the real clock, companion and bus.
struct RealMedia {
    RealMedia() {
        notifications.start();
        tracking.startMediaMonitoring();
    }

    /// Presses a button and waits until the command has ended; returns whether it succeeded.
    bool press(const char *word) {
        model.control(QString::fromUtf8(word));
        return QTest::qWaitFor([&] { return !model.controlling(); }, 15'000) &&
               model.controlError().isNull();
    }
    bool waitForSession(const QString &title) {
        return QTest::qWaitFor(
            [&] { return model.media().isSystem && model.musicTitle() == title; }, 15'000);
    }

    FakeHosts fake;
    QtClock clock;
    ShelfModel model{clock, fake.preferences, fake.alertSound};
    ProcessScriptHost scripts{QStringLiteral(COMPANION)};
    BusPlayerNotifications notifications{std::make_shared<SessionBus>(QStringLiteral("players"))};
    MediaTracking tracking{model, clock, scripts, notifications, fake.musicPlayer};
};

} // namespace

class RealPlayersTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void followsAndControlsABrowserTab() {
        const Browser browser;
        RealMedia media;
        const ShelfModel &model = media.model;
        QVERIFY(media.waitForSession(QStringLiteral("Tab song 🎵")));
        QCOMPARE(model.mediaSource(), QStringLiteral("Chromium"));
        QCOMPARE(model.musicArtist(), QStringLiteral("Tab singer"));
        QVERIFY(model.mediaIsBrowser() && model.mediaCanSeek() && model.playing());
        for (const char *word : {"playpause", "forward", "rewind"}) {
            QVERIFY(media.press(word));
            QVERIFY(!model.playing());
        }
        QVERIFY(media.press("playpause"));
        QVERIFY(model.playing());
        QVERIFY(media.press("next track"));
        QVERIFY(media.waitForSession(QStringLiteral("Next song")));
    }
};

QTEST_GUILESS_MAIN(RealPlayersTest)
#include "RealPlayersTest.moc"
