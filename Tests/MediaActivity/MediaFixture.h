#pragma once

#include "FakeHosts.h"
#include "MediaTracking.h"
#include "ShelfModel.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace perchly {

/// What the companion prints for a reading.
inline QByteArray json(const MediaActivity &activity) {
    QJsonObject object{{QStringLiteral("title"), activity.title},
                       {QStringLiteral("artist"), activity.artist},
                       {QStringLiteral("source"), activity.source},
                       {QStringLiteral("playing"), activity.playing}};
    const auto seconds = [](const std::optional<double> &time) {
        return time ? QJsonValue(*time) : QJsonValue(QJsonValue::Null);
    };
    object.insert(QStringLiteral("elapsedTime"), seconds(activity.elapsedTime));
    object.insert(QStringLiteral("duration"), seconds(activity.duration));
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

inline MediaActivity track() {
    return {.title = QStringLiteral("Song"),
            .artist = QStringLiteral("Singer"),
            .source = QStringLiteral("Chromium"),
            .playing = true,
            .elapsedTime = 100,
            .duration = 200};
}

/// A model that is followed, over a companion and a clock that the test drives.
struct MediaFixture {
    FakeHosts fake;
    ShelfModel model{fake.clock, fake.preferences, fake.alertSound};
    MediaTracking tracking{model, fake.clock, fake.scriptHost, fake.playerNotifications,
                           fake.musicPlayer};
};

} // namespace perchly
