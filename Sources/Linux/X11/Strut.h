#pragma once

#include <QList>
#include <QRect>
#include <QSize>

namespace perchly {

/// What one window (a dock, a desktop panel) reserves along the edges of the X screen, in pixels.
struct Strut {
    struct Side {
        int depth = 0; ///< measured from the X screen's edge, 0 for nothing
        int first = 0; ///< the reserved stretch along that edge, both ends included
        int last = 0;

        bool operator==(const Side &) const = default;
    };
    Side left;
    Side right;
    Side top;
    Side bottom;

    [[nodiscard]] bool isEmpty() const;
    bool operator==(const Strut &) const = default;

    /// From the values of _NET_WM_STRUT_PARTIAL, or else of _NET_WM_STRUT. Values that make no
    /// sense reserve nothing.
    [[nodiscard]] static Strut fromProperties(const QList<quint32> &partial,
                                              const QList<quint32> &whole);
};

/// What the struts leave of a display. All in pixels.
///
/// A strut counts for a display only if it ends inside it: a panel between two displays has to
/// reserve everything up to the X screen's edge, and means only the display that it stands on.
[[nodiscard]] QRect visibleArea(const QRect &display, QSize xScreen, const QList<Strut> &struts);

} // namespace perchly
