// What must hold for every display, tried on many that nobody would think of.

#include "GeometryOutput.h"
#include "TestRegistry.h"

#include <QRandomGenerator>

namespace perchly {

namespace {

constexpr int cases = 5'000;

class RandomDisplays {
public:
    double between(double low, double high) {
        return low + m_random.generateDouble() * (high - low);
    }

    ShelfEdge edge() { return allShelfEdges.at(m_random.bounded(quint32(allShelfEdges.size()))); }

    ScreenRect frame(double smallest) {
        return {between(-5000, 5000), between(-5000, 5000), between(smallest, 5000),
                between(smallest, 3000)};
    }

    /// Panels take up to a quarter of each side.
    DisplayGeometry display(double smallest) {
        const ScreenRect f = frame(smallest);
        const double left = between(0, f.width / 4);
        const double bottom = between(0, f.height / 4);
        DisplayGeometry display{.frame = f,
                                .visibleFrame = {f.x + left, f.y + bottom,
                                                 f.width - left - between(0, f.width / 4),
                                                 f.height - bottom - between(0, f.height / 4)}};
        if (m_random.bounded(2) == 1) {
            const double inset = between(1, 60);
            const double gap = between(-20, f.width / 3);
            const double side = (f.width - gap) / 2;
            display.safeAreaTop = inset;
            display.auxiliaryTopLeftArea = ScreenRect{f.x, f.maxY() - inset, side, inset};
            display.auxiliaryTopRightArea =
                ScreenRect{f.maxX() - side, f.maxY() - inset, side, inset};
        }
        return display;
    }

private:
    QRandomGenerator m_random{20260921};
};

bool within(double low, double high, double outerLow, double outerHigh) {
    return low >= outerLow - 1e-6 && high <= outerHigh + 1e-6;
}

QByteArray described(const DisplayGeometry &display, const ShelfPosition &place,
                     const ScreenRect &frame) {
    return QStringLiteral("display %1, visible %2, shelf %3: frame %4")
        .arg(text(display.frame), text(display.visibleFrame), text(place), text(frame))
        .toUtf8();
}

} // namespace

class PlacementPropertiesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theFrameIsInsideItsArea() {
        RandomDisplays random;
        for (int i = 0; i < cases; ++i) {
            const DisplayGeometry display = random.display(1);
            const ShelfPosition place{random.edge(), random.between(-0.5, 1.5)};
            const ShelfEdge layoutEdge = random.edge();
            const CompactSize compact = compactSize({layoutEdge, place.position}, display);
            const double scale = random.between(0.1, 3);
            for (const ShelfSize size : {ShelfSize::Compact, ShelfSize::Expanded}) {
                const ScreenRect frame =
                    shelfFrame(size, layoutEdge, place, compact, scale, display);
                const ScreenRect &rows =
                    place.edge == ShelfEdge::Top ? display.frame : display.visibleFrame;
                const bool inside = within(frame.minX(), frame.maxX(), display.frame.minX(),
                                           display.frame.maxX()) &&
                                    within(frame.minY(), frame.maxY(), rows.minY(), rows.maxY());
                QVERIFY2(inside, described(display, place, frame).constData());
            }
        }
    }

    void aDropIsAlwaysOnTheEdge() {
        RandomDisplays random;
        for (int i = 0; i < cases; ++i) {
            const DisplayGeometry display = random.display(0);
            const ScreenPoint at{random.between(-20000, 20000), random.between(-20000, 20000)};
            const ShelfPosition place =
                ShelfPosition::drop(at, display.frame, display.visibleFrame);
            QVERIFY2(place.position >= 0 && place.position <= 1,
                     described(display, place, {at.x, at.y, 0, 0}).constData());
        }
    }

    /// Let go where it is docked, the shelf must not move: not to another edge, not along its own.
    void lettingGoWhereItIsDockedChangesNothing() {
        RandomDisplays random;
        for (int i = 0; i < cases; ++i) {
            const DisplayGeometry display = random.display(800);
            const ShelfPosition place{random.edge(), random.between(0, 1)};
            const auto frameAt = [&](const ShelfPosition &where) {
                return shelfFrame(ShelfSize::Compact, place.edge, where,
                                  compactSize(place, display), 1, display);
            };
            const ScreenRect frame = frameAt(place);
            const double middle = frame.y + frame.height / 2;
            const ScreenPoint docked =
                place.edge == ShelfEdge::Top    ? ScreenPoint{frame.midX(), frame.maxY()}
                : place.edge == ShelfEdge::Left ? ScreenPoint{frame.minX(), middle}
                                                : ScreenPoint{frame.maxX(), middle};
            const ShelfPosition dropped =
                ShelfPosition::drop(docked, display.frame, display.visibleFrame);
            QVERIFY2(dropped.edge == place.edge && near(frameAt(dropped), frame),
                     described(display, place, frameAt(dropped)).constData());
        }
    }
};

static const RegisteredTest<PlacementPropertiesTest> registered;

} // namespace perchly

#include "PlacementPropertiesTest.moc"
