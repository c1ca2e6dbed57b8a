#pragma once

#include "ShelfGeometry.h"

#include <QString>
#include <QTest>

#include <cmath>

namespace perchly {

inline bool near(double a, double b) {
    return std::abs(a - b) < 1e-6;
}

inline bool near(const ScreenRect &a, const ScreenRect &b) {
    return near(a.x, b.x) && near(a.y, b.y) && near(a.width, b.width) && near(a.height, b.height);
}

inline QString text(const ScreenRect &rect) {
    return QStringLiteral("(%1, %2, %3, %4)")
        .arg(rect.x)
        .arg(rect.y)
        .arg(rect.width)
        .arg(rect.height);
}

inline QString text(const ShelfPosition &place) {
    return QStringLiteral("%1 at %2").arg(shelfEdgeName(place.edge)).arg(place.position);
}

/// Text for a failed comparison.
template <class T>
QByteArray difference(const T &actual, const T &expected) {
    return QStringLiteral("got %1 instead of %2").arg(text(actual), text(expected)).toUtf8();
}

} // namespace perchly
