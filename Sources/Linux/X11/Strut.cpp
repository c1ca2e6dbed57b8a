#include "Strut.h"

#include <algorithm>
#include <limits>

namespace perchly {

namespace {

// X coordinates have 16 bits; larger values are errors.
int sane(quint32 value) {
    return value > quint32(std::numeric_limits<qint16>::max()) ? 0 : static_cast<int>(value);
}

Strut::Side side(quint32 depth, quint32 first, quint32 last) {
    Strut::Side result{sane(depth), sane(first), sane(last)};
    if (result.last <= 0) { // some programs set only the depth
        result.last = std::numeric_limits<int>::max();
    }
    return result.depth > 0 ? result : Strut::Side{};
}

bool covers(const Strut::Side &side, int first, int last) {
    return side.depth > 0 && side.first <= last && side.last >= first;
}

} // namespace

bool Strut::isEmpty() const {
    return *this == Strut{};
}

Strut Strut::fromProperties(const QList<quint32> &partial, const QList<quint32> &whole) {
    const auto sideAt = [&](int index) {
        const int range = 4 + 2 * index;
        return partial.size() >= 12 ? side(partial[index], partial[range], partial[range + 1])
               : whole.size() >= 4  ? side(whole[index], 0, 0)
                                    : Side{};
    };
    return {sideAt(0), sideAt(1), sideAt(2), sideAt(3)};
}

QRect visibleArea(const QRect &display, QSize xScreen, const QList<Strut> &struts) {
    QRect area = display;
    for (const Strut &strut : struts) {
        const auto isBeside = [&](const Strut::Side &side) {
            return covers(side, display.top(), display.bottom());
        };
        const auto isAcross = [&](const Strut::Side &side) {
            return covers(side, display.left(), display.right());
        };
        if (isBeside(strut.left) && strut.left.depth <= display.right()) {
            area.setLeft(std::max(area.left(), strut.left.depth));
        }
        if (isAcross(strut.top) && strut.top.depth <= display.bottom()) {
            area.setTop(std::max(area.top(), strut.top.depth));
        }
        const int right = xScreen.width() - strut.right.depth - 1;
        if (isBeside(strut.right) && right >= display.left()) {
            area.setRight(std::min(area.right(), right));
        }
        const int bottom = xScreen.height() - strut.bottom.depth - 1;
        if (isAcross(strut.bottom) && bottom >= display.top()) {
            area.setBottom(std::min(area.bottom(), bottom));
        }
    }
    return area.isEmpty() ? display : area;
}

} // namespace perchly
