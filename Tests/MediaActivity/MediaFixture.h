#pragma once

#include "FakeHosts.h"
#include "MediaTracking.h"
#include "ShelfModel.h"

namespace perchly {

/// What the companion prints for a reading of one item.
inline QByteArray item(const QByteArray &title = "Song", const QByteArray &source = "Chromium",
                       const QByteArray &playing = "true", const QByteArray &elapsed = "100",
                       const QByteArray &duration = "200") {
    return R"({"title":")" + title + R"(","artist":"Singer","source":")" + source +
           R"(","playing":)" + playing + R"(,"elapsedTime":)" + elapsed + R"(,"duration":)" +
           duration + "}\n";
}

/// A model that follows players, over a companion and a clock that the test drives.
struct MediaFixture {
    FakeHosts fake;
    ShelfModel model{fake.clock, fake.preferences, fake.alertSound};
    MediaTracking tracking{model, fake.clock, fake.scriptHost, fake.playerNotifications,
                           fake.musicPlayer};
};

} // namespace perchly
