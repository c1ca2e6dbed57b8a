#pragma once

#include "FakeClock.h"
#include "FakePlatform.h"
#include "FakePreferences.h"
#include "PreferenceKeys.h"
#include "ShelfModel.h"

#include <limits>

namespace perchly {

using namespace std::chrono_literals;

/// A model whose time moves by hand. Values stored before `start` are those of the last run.
struct FocusFixture {
    FocusFixture() = default;
    explicit FocusFixture(Clock::TimePoint now)
        : clock(now) {}

    ShelfModel &start() { return model.emplace(clock, preferences, sound); }

    [[nodiscard]] double secondsOf(Clock::TimePoint moment) const {
        return std::chrono::duration<double>(moment.time_since_epoch()).count();
    }

    void storeTotals(double sessions, double minutes) {
        preferences.values[keys::focusDay] = secondsOf(clock.startOfDay());
        preferences.values[keys::focusSessions] = sessions;
        preferences.values[keys::focusTotalMinutes] = minutes;
    }

    /// The day's totals in the model, and whether the same are stored for today.
    [[nodiscard]] QString totals() const;

    FakeClock clock;
    FakePreferences preferences;
    FakeAlertSound sound;
    std::optional<ShelfModel> model;
};

/// How FocusFixture::totals() reads when the model and the store agree.
inline QString totalsText(int sessions, int minutes) {
    return QStringLiteral("%1 sessions, %2 minutes").arg(sessions).arg(minutes);
}

inline QString FocusFixture::totals() const {
    const QString shown = totalsText(model->todaySessions(), model->todayMinutes());
    const auto stored = [this](QLatin1StringView key) {
        return preferences.wholeNumber(key).value_or(-1);
    };
    const QString written =
        totalsText(int(stored(keys::focusSessions)), int(stored(keys::focusTotalMinutes)));
    if (preferences.number(keys::focusDay) != secondsOf(clock.startOfDay())) {
        return QStringLiteral("stored for another day");
    }
    return shown == written ? shown : shown + QLatin1StringView(", stored ") + written;
}

} // namespace perchly
