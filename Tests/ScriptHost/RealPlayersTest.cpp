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

/// A browser without a window that shows the page of the tests, and ends with them.
class Browser {
public:
    Browser() {
        m_process.setStandardErrorFile(QProcess::nullDevice());
        QStringList arguments{QStringLiteral("file://" TAB_PAGE),
                              QStringLiteral("--user-data-dir=") + QDir::tempPath() +
                                  QStringLiteral("/browser")};
        for (const char *option :
             {"headless", "no-sandbox", "disable-gpu", "disable-quic", "no-first-run",
              "disable-background-networking", "disable-component-update", "disable-sync",
              "autoplay-policy=no-user-gesture-required"}) {
            arguments.append(QStringLiteral("--") + QLatin1String(option));
        }
        m_process.start(QStringLiteral("chromium"), arguments);
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

/// What follows players in the program, over the real clock, companion and bus.
struct RealMedia {
    RealMedia() {
        notifications.start();
        tracking.startMediaMonitoring();
    }

    /// Presses a button and waits until the command has ended.
    bool press(const char *word) {
        model.control(QString::fromUtf8(word));
        return QTest::qWaitFor([&] { return !model.controlling(); }, 15'000);
    }
    bool succeeds(const char *word) { return press(word) && model.controlError().isNull(); }
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
    void tabIsFollowedAndObeys() {
        const Browser browser;
        RealMedia media;
        const ShelfModel &model = media.model;
        QVERIFY(media.waitForSession(QStringLiteral("Tab song 🎵")));
        QCOMPARE(model.mediaSource(), QStringLiteral("Chromium"));
        QCOMPARE(model.musicArtist(), QStringLiteral("Tab singer"));
        QVERIFY(model.mediaIsBrowser() && model.mediaCanSeek() && model.playing());
        for (const char *word : {"playpause", "forward", "rewind"}) {
            QVERIFY(media.succeeds(word));
            QVERIFY(!model.playing());
        }
        QVERIFY(media.succeeds("playpause"));
        QVERIFY(model.playing());
        QVERIFY(media.succeeds("next track"));
        QVERIFY(media.waitForSession(QStringLiteral("Next song")));
    }
};

QTEST_GUILESS_MAIN(RealPlayersTest)
#include "RealPlayersTest.moc"
