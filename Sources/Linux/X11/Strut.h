#pragma once

#include <QList>
#include <QRect>
#include <QSize>

namespace perchly {

/// The space that one window, such as a dock, reserves along the X screen's edges, in pixels.
struct Strut {
    struct Side {
        int depth = 0; ///< measured from the X screen's edge; 0 reserves nothing
        int first = 0; ///< the reserved range along that edge, both ends included
        int last = 0;

        bool operator==(const Side &) const = default;
    };
    Side left;
    Side right;
    Side top;
    Side bottom;

    [[nodiscard]] bool isEmpty() const;
    bool operator==(const Strut &) const = default;

    /// Reads _NET_WM_STRUT_PARTIAL, or else _NET_WM_STRUT. Impossible values reserve nothing.
    [[nodiscard]] static Strut fromProperties(const QList<quint32> &partial,
                                              const QList<quint32> &whole);
};

/// The part of a display without the struts, in pixels; the whole display if nothing would be left.
///
/// A strut affects only the display in which it ends: a panel between two displays must reserve
/// everything up to the X screen's edge, but means only its own display.
[[nodiscard]] QRect visibleArea(const QRect &display, QSize xScreen, const QList<Strut> &struts);

} // namespace perchly
