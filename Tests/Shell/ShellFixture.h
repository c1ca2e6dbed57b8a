#pragma once

#include "AppDelegate.h"
#include "FakeHosts.h"
#include "PreferenceKeys.h"

namespace perchly {

/// A launched delegate on the default fake display (1440 × 900, 40 points reserved at the bottom).
/// Its collapsed shelf is at the top centre: (575, 866, 290, 34).
struct ShellFixture {
    /// `prepare` runs before the delegate is created, to store preferences or change displays.
    explicit ShellFixture(const std::function<void(FakeHosts &)> &prepare = {}) {
        if (prepare) {
            prepare(fake);
        }
        delegate = std::make_unique<AppDelegate>(fake.hosts);
        delegate->launch();
    }

    void pointerOntoPill() { fake.pointer.moveTo(720, 890); }
    void pointerAway() { fake.pointer.moveTo(100, 100); }
    [[nodiscard]] bool expanded() const { return delegate->model().expanded(); }

    FakeHosts fake;
    std::unique_ptr<AppDelegate> delegate;
};

inline constexpr ScreenRect compactFrame{575, 866, 290, 34};
inline constexpr ScreenRect expandedFrame{390, 381, 660, 519};

} // namespace perchly

/// Prints both rectangles when a comparison fails.
inline char *toString(const perchly::ScreenRect &rectangle) {
    return qstrdup(qPrintable(QStringLiteral("(%1, %2, %3 × %4)")
                                  .arg(rectangle.x)
                                  .arg(rectangle.y)
                                  .arg(rectangle.width)
                                  .arg(rectangle.height)));
}
