#pragma once

#include "BusPlayerNotifications.h"
#include "FakeHosts.h"
#include "MediaTracking.h"
#include "ProcessScriptHost.h"
#include "QtClock.h"
#include "ShelfModel.h"

#include <QTest>

namespace perchly {

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
    bool waitForSession(const QString &title) {
        return QTest::qWaitFor([&] { return model.systemMedia() && model.musicTitle() == title; },
                               15'000);
    }

    FakeHosts fake;
    QtClock clock;
    ShelfModel model{clock, fake.preferences, fake.alertSound};
    ProcessScriptHost scripts{QStringLiteral(COMPANION)};
    BusPlayerNotifications notifications;
    MediaTracking tracking{model, clock, scripts, notifications, fake.musicPlayer};
};

} // namespace perchly
