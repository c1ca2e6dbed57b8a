#include "StackingGuard.h"

#include "ScreenSpace.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>

namespace perchly {

namespace {

constexpr std::chrono::milliseconds stackingSettleTime{40};
constexpr std::chrono::milliseconds periodLength{5000};
constexpr int mostRaises = 4;

template <typename Geometry>
QRect rectOf(const Geometry &geometry) {
    return {geometry.x, geometry.y, geometry.width, geometry.height};
}

bool isOurs(xcb_window_t window) {
    const QWindowList all = QGuiApplication::allWindows();
    return std::any_of(all.begin(), all.end(), [window](const QWindow *candidate) {
        return candidate->handle() && candidate->winId() == window;
    });
}

bool fillsDisplay(const QRect &area) {
    const QList<ScreenSpace::Screen> screens = ScreenSpace::current().screens();
    return std::any_of(screens.begin(), screens.end(), [&](const ScreenSpace::Screen &screen) {
        return area.contains(ScreenSpace::pixelGeometry(screen));
    });
}

} // namespace

StackingGuard::StackingGuard(XcbConnection &connection, QObject *parent)
    : QObject(parent)
    , m_connection(connection) {
    m_check.setSingleShot(true);
    m_check.setInterval(stackingSettleTime);
    connect(&m_check, &QTimer::timeout, this, &StackingGuard::check);
    connect(&connection, &XcbConnection::eventArrived, this, &StackingGuard::handleEvent);
    connect(&connection, &XcbConnection::restored, this, [this] {
        begin();
        watch(m_window);
    });
    begin();
}

void StackingGuard::begin() {
    if (!m_connection.isAlive()) {
        return;
    }
    // A translucent window gets no VisibilityNotify, so watch the managed windows instead: their
    // order, and where they are. No single property is enough: some managers leave the order alone
    // when the first window comes.
    m_signs = {m_connection.atom("_NET_CLIENT_LIST_STACKING"),
               m_connection.atom("_NET_CLIENT_LIST"), m_connection.atom("_NET_ACTIVE_WINDOW")};
    const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection.get(), m_connection.root(), XCB_CW_EVENT_MASK, &mask);
    m_connection.flush();
}

void StackingGuard::watch(xcb_window_t window) {
    m_window = window;
    m_isSelected = false;
    select();
    m_check.start();
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
    case XCB_UNMAP_NOTIFY: // perhaps a menu or a screen lock that kept us from raising
        scheduleCheck();
        break;
    default:
        break;
    }
}

// Arrives for each step of any window that is dragged: no questions to the server here.
void StackingGuard::handleMove(const xcb_configure_notify_event_t &event) {
    const QRect area = rectOf(event);
    if (event.window != m_window) {
        // An unmanaged window that raises itself must not make us raise ours in turn.
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
        m_check.start();
    }
}

void StackingGuard::select() {
    if (m_isSelected || m_window == XCB_WINDOW_NONE || !m_connection.isAlive()) {
        return;
    }
    const quint32 mask = XCB_EVENT_MASK_VISIBILITY_CHANGE;
    m_isSelected = m_connection
                       .succeeded({xcb_change_window_attributes_checked(
                           m_connection.get(), m_window, XCB_CW_EVENT_MASK, &mask)})
                       .value_or(false);
}

void StackingGuard::check() {
    m_check.setInterval(stackingSettleTime);
    select();
    if (cover() != Cover::Unwanted) {
        return;
    }
    if (m_period.hasExpired()) {
        m_period.setRemainingTime(periodLength);
        m_raises = 0;
    }
    if (m_raises == mostRaises) {
        m_check.start(std::chrono::milliseconds(m_period.remainingTime()) + stackingSettleTime);
        return;
    }
    ++m_raises;
    Q_EMIT raiseWanted();
}

StackingGuard::Cover StackingGuard::cover() {
    if (m_window == XCB_WINDOW_NONE || !m_connection.isAlive()) {
        return Cover::None;
    }
    const auto geometry = m_connection.reply<xcb_get_geometry_reply_t>(
        xcb_get_geometry(m_connection.get(), m_window));
    if (!geometry) {
        return Cover::None;
    }
    m_area = rectOf(*geometry);
    Cover result = Cover::None;
    for (const xcb_window_t window : windowsAbove()) {
        result = std::max(result, coverBy(window));
    }
    return result;
}

QList<xcb_window_t> StackingGuard::windowsAbove() {
    const auto tree = m_connection.reply<xcb_query_tree_reply_t>(
        xcb_query_tree(m_connection.get(), m_connection.root()));
    if (!tree) {
        return {};
    }
    const xcb_window_t *windows = xcb_query_tree_children(tree.get());
    const xcb_window_t *end = windows + xcb_query_tree_children_length(tree.get());
    const xcb_window_t *ours = std::find(windows, end, m_window);
    return ours == end ? QList<xcb_window_t>{} : QList<xcb_window_t>(ours + 1, end);
}

StackingGuard::Cover StackingGuard::coverBy(xcb_window_t window) {
    const auto attributesCookie = xcb_get_window_attributes(m_connection.get(), window);
    const auto geometryCookie = xcb_get_geometry(m_connection.get(), window);
    const auto attributes = m_connection.reply<xcb_get_window_attributes_reply_t>(attributesCookie);
    const auto geometry = m_connection.reply<xcb_get_geometry_reply_t>(geometryCookie);
    if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE ||
        attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY ||
        !rectOf(*geometry).intersects(m_area)) {
        return Cover::None;
    }
    const bool isAllowed = attributes->override_redirect != 0 &&
                           (isOurs(window) || fillsDisplay(rectOf(*geometry)) || isMenu(window));
    return isAllowed ? Cover::Allowed : Cover::Unwanted;
}

bool StackingGuard::isMenu(xcb_window_t window) {
    static const QList<QByteArray> kinds{
        "_NET_WM_WINDOW_TYPE_MENU",    "_NET_WM_WINDOW_TYPE_POPUP_MENU",
        "_NET_WM_WINDOW_TYPE_COMBO",   "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU",
        "_NET_WM_WINDOW_TYPE_TOOLTIP", "_NET_WM_WINDOW_TYPE_DND"};
    const QList<quint32> types =
        m_connection.property(window, m_connection.atom("_NET_WM_WINDOW_TYPE"));
    return std::any_of(kinds.begin(), kinds.end(), [&](const QByteArray &kind) {
        return types.contains(m_connection.atom(kind));
    });
}

} // namespace perchly
