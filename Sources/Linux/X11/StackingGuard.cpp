#include "StackingGuard.h"

#include "ScreenSpace.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>

namespace perchly {

namespace {

constexpr std::chrono::milliseconds stackingSettleTime{40};
constexpr std::chrono::milliseconds periodLength{5000};
constexpr int maxRaises = 4;

template <typename Geometry>
QRect rectOf(const Geometry &geometry) {
    return {geometry.x, geometry.y, geometry.width, geometry.height};
}

bool isOurs(xcb_window_t window) {
    return std::ranges::any_of(QGuiApplication::allWindows(), [window](const QWindow *candidate) {
        return candidate->handle() && candidate->winId() == window;
    });
}

bool fillsDisplay(const QRect &area) {
    return std::ranges::any_of(ScreenSpace::current().screens(), [&](const auto &screen) {
        return area.contains(ScreenSpace::pixelGeometry(screen));
    });
}

} // namespace

StackingGuard::StackingGuard(XcbConnection &connection)
    : m_connection(connection) {
    m_check.setSingleShot(true);
    connect(&m_check, &QTimer::timeout, this, &StackingGuard::check);
    connect(&connection, &XcbConnection::eventArrived, this, &StackingGuard::handleEvent);
    // A translucent window gets no VisibilityNotify, so watch the order and positions of managed
    // windows, too. No single property is enough: some window managers do not change the order when
    // the first window appears.
    m_signs = {connection.atom("_NET_CLIENT_LIST_STACKING"), connection.atom("_NET_CLIENT_LIST"),
               connection.atom("_NET_ACTIVE_WINDOW")};
    connection.selectEvents(connection.root(),
                            XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
}

void StackingGuard::watch(xcb_window_t window) {
    m_window = window;
    scheduleCheck();
}

void StackingGuard::handleEvent(const xcb_generic_event_t *event) {
    switch (event->response_type & 0x7f) {
    case XCB_VISIBILITY_NOTIFY:
        if (reinterpret_cast<const xcb_visibility_notify_event_t *>(event)->state !=
            XCB_VISIBILITY_UNOBSCURED) {
            scheduleCheck();
        }
        break;
    case XCB_PROPERTY_NOTIFY:
        if (m_signs.contains(reinterpret_cast<const xcb_property_notify_event_t *>(event)->atom)) {
            scheduleCheck();
        }
        break;
    case XCB_CONFIGURE_NOTIFY:
        handleMove(*reinterpret_cast<const xcb_configure_notify_event_t *>(event));
        break;
    case XCB_UNMAP_NOTIFY: // a closed menu or screen lock may have prevented a raise
        scheduleCheck();
        break;
    default:
        break;
    }
}

// Called for each step while any window is dragged, so it makes no server request.
void StackingGuard::handleMove(const xcb_configure_notify_event_t &event) {
    const QRect area = rectOf(event);
    if (event.window != m_window) {
        // If an unmanaged window raises itself, do not raise ours in turn.
        if (event.override_redirect == 0 && area.intersects(m_area)) {
            scheduleCheck();
        }
    } else if (area != m_area) {
        m_area = area;
        m_raises = 0;
        m_check.start(std::chrono::milliseconds(0));
    }
}

void StackingGuard::scheduleCheck() {
    if (!m_check.isActive()) {
        m_check.start(stackingSettleTime);
    }
}

void StackingGuard::check() {
    // Repeated, as the server may not have known the window at first.
    m_connection.selectEvents(m_window, XCB_EVENT_MASK_VISIBILITY_CHANGE);
    const auto geometry = m_connection.reply<xcb_get_geometry_reply_t>(
        xcb_get_geometry(m_connection.get(), m_window));
    if (!geometry) {
        return;
    }
    m_area = rectOf(*geometry);
    const Above above = windowsAbove(m_area, From::Window);
    if (!above.isCovered) {
        return;
    }
    if (m_period.hasExpired()) {
        m_period.setRemainingTime(periodLength);
        m_raises = 0;
    }
    if (m_raises == maxRaises) {
        m_check.start(std::chrono::milliseconds(m_period.remainingTime()) + stackingSettleTime);
        return;
    }
    ++m_raises;
    raiseBelow(above.ceiling);
}

void StackingGuard::raise(const QRect &area) {
    raiseBelow(windowsAbove(area, From::Bottom).ceiling);
}

void StackingGuard::raiseBelow(xcb_window_t ceiling) {
    const bool isTop = ceiling == XCB_WINDOW_NONE;
    const quint32 top[]{XCB_STACK_MODE_ABOVE};
    const quint32 below[]{ceiling, XCB_STACK_MODE_BELOW};
    const int mask = XCB_CONFIG_WINDOW_STACK_MODE | (isTop ? 0 : XCB_CONFIG_WINDOW_SIBLING);
    xcb_configure_window(m_connection.get(), m_window, quint16(mask), isTop ? top : below);
    xcb_flush(m_connection.get());
}

StackingGuard::Above StackingGuard::windowsAbove(const QRect &area, From from) {
    const auto tree = m_connection.reply<xcb_query_tree_reply_t>(
        xcb_query_tree(m_connection.get(), m_connection.root()));
    if (!tree) {
        return {};
    }
    const xcb_window_t *windows = xcb_query_tree_children(tree.get());
    const xcb_window_t *end = windows + xcb_query_tree_children_length(tree.get());
    Above above;
    const auto *own = std::find(windows, end, m_window);
    const auto *window = from == From::Bottom ? windows : own;
    Cover cover = Cover::None;
    for (; window != end && cover != Cover::Lock; ++window) {
        const bool isAbove = window > own;
        cover = window == own ? Cover::None : coverBy(*window, area);
        if (cover == Cover::Lock && !isAbove) {
            cover = Cover::None; // locks nothing
        }
        if (cover == Cover::Unwanted) {
            above = {.isCovered = isAbove}; // a notification below it does not matter
        } else if (cover != Cover::None && above.ceiling == XCB_WINDOW_NONE) {
            above.ceiling = *window;
        }
    }
    return above;
}

StackingGuard::Cover StackingGuard::coverBy(xcb_window_t window, const QRect &area) {
    const auto attributesCookie = xcb_get_window_attributes(m_connection.get(), window);
    const auto geometryCookie = xcb_get_geometry(m_connection.get(), window);
    const auto attributes = m_connection.reply<xcb_get_window_attributes_reply_t>(attributesCookie);
    const auto geometry = m_connection.reply<xcb_get_geometry_reply_t>(geometryCookie);
    if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE ||
        attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY || !rectOf(*geometry).intersects(area)) {
        return Cover::None;
    }
    if (attributes->override_redirect == 0) {
        return Cover::Unwanted;
    }
    if (isOurs(window) || mayCover(window)) {
        return Cover::Allowed;
    }
    return fillsDisplay(rectOf(*geometry)) ? Cover::Lock : Cover::Unwanted;
}

bool StackingGuard::mayCover(xcb_window_t window) {
    static constexpr const char *kinds[] = {"MENU",    "POPUP_MENU", "COMBO",       "DROPDOWN_MENU",
                                            "TOOLTIP", "DND",        "NOTIFICATION"};
    const QList<quint32> types =
        m_connection.property(window, m_connection.atom("_NET_WM_WINDOW_TYPE"));
    return std::ranges::any_of(kinds, [&](const char *kind) {
        return types.contains(m_connection.atom(QByteArray("_NET_WM_WINDOW_TYPE_") + kind));
    });
}

} // namespace perchly
