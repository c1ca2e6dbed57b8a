#include "ShelfHeaderView.h"

#include "AppDelegate.h"

#include <cmath>

namespace perchly {

namespace {

constexpr double dragThreshold = 8;

} // namespace

ShelfHeaderView::ShelfHeaderView(AppDelegate &delegate)
    : m_delegate(delegate) {}

void ShelfHeaderView::press(ScreenPoint at) {
    m_start = at;
    m_dragStarted = false;
}

void ShelfHeaderView::move(ScreenPoint to) {
    if (!m_start) {
        return;
    }
    if (!m_dragStarted && std::hypot(to.x - m_start->x, to.y - m_start->y) >= dragThreshold) {
        m_dragStarted = true;
        m_delegate.beginShelfDrag(*m_start);
    }
    if (m_dragStarted) {
        m_delegate.moveShelfDrag(to);
    }
}

void ShelfHeaderView::release(ScreenPoint at) {
    move(at); // the release itself may be the first that is heard of the movement
    if (!m_start) {
        return;
    }
    m_start.reset();
    if (m_dragStarted) {
        m_delegate.endShelfDrag(at);
    } else {
        m_delegate.toggleKeyboardOpen();
    }
}

void ShelfHeaderView::cancel(ScreenPoint at) {
    m_start.reset();
    m_delegate.endShelfDrag(at);
}

} // namespace perchly
