#include "Strut.h"

#include <algorithm>
#include <limits>

namespace perchly {

namespace {

constexpr int endless = std::numeric_limits<int>::max();

// X coordinates have 16 bits; larger values are mistakes.
int sane(quint32 value) {
    return value > static_cast<quint32>(std::numeric_limits<qint16>::max())
               ? 0
               : static_cast<int>(value);
}

Strut::Side side(quint32 depth, quint32 first, quint32 last) {
    Strut::Side result{sane(depth), sane(first), sane(last)};
    // Some programs fill in only the depth.
    if (result.last <= 0) {
        result.last = endless;
    }
    return result.depth > 0 ? result : Strut::Side{};
}

bool covers(const Strut::Side &side, int first, int last) {
    return side.depth > 0 && side.first <= last && side.last >= first;
}

} // namespace

bool Strut::isEmpty() const {
    return left.depth == 0 && right.depth == 0 && top.depth == 0 && bottom.depth == 0;
}

Strut Strut::fromProperties(const QList<quint32> &partial, const QList<quint32> &whole) {
    if (partial.size() >= 12) {
        return {side(partial[0], partial[4], partial[5]), side(partial[1], partial[6], partial[7]),
                side(partial[2], partial[8], partial[9]),
                side(partial[3], partial[10], partial[11])};
    }
    if (whole.size() >= 4) {
        return {side(whole[0], 0, 0), side(whole[1], 0, 0), side(whole[2], 0, 0),
                side(whole[3], 0, 0)};
    }
    return {};
}

QRect visibleArea(const QRect &display, QSize xScreen, const QList<Strut> &struts) {
    const int displayRight = display.x() + display.width();
    const int displayBottom = display.y() + display.height();
    int left = display.x();
    int top = display.y();
    int right = displayRight;
    int bottom = displayBottom;
    for (const Strut &strut : struts) {
        if (covers(strut.left, display.top(), display.bottom()) &&
            strut.left.depth < displayRight) {
            left = std::max(left, strut.left.depth);
        }
        if (covers(strut.top, display.left(), display.right()) && strut.top.depth < displayBottom) {
            top = std::max(top, strut.top.depth);
        }
        const int rightEdge = xScreen.width() - strut.right.depth;
        if (covers(strut.right, display.top(), display.bottom()) && rightEdge > display.x()) {
            right = std::min(right, rightEdge);
        }
        const int bottomEdge = xScreen.height() - strut.bottom.depth;
        if (covers(strut.bottom, display.left(), display.right()) && bottomEdge > display.y()) {
            bottom = std::min(bottom, bottomEdge);
        }
    }
    // Struts that meet leave nothing to stand on; the display as a whole is the better answer.
    if (left >= right || top >= bottom) {
        return display;
    }
    return {left, top, right - left, bottom - top};
}

} // namespace perchly
