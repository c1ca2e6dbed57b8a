#include "SelectionSending.h"

#include "SelectionConnection.h"

#include <algorithm>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto sendTimeout = 10s;
constexpr qsizetype longestPart = 192 * 1024; // any server takes this much at once
constexpr quint32 reading = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;

} // namespace

void SelectionSending::send(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                            const QByteArray &bytes) {
    if (bytes.size() <= longestPart) {
        xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window, property, type, 8,
                            static_cast<quint32>(bytes.size()), bytes.constData());
        return;
    }
    watch(window, reading);
    const auto size = static_cast<quint32>(bytes.size());
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window, property,
                        m_connection.atoms().increments, 32, 1, &size);
    m_outgoing.push_back(
        {window, property, type, bytes, 0, std::chrono::steady_clock::now() + sendTimeout});
}

void SelectionSending::handleEvent(const xcb_generic_event_t &event) {
    const int type = event.response_type & 0x7f;
    if (type == XCB_DESTROY_NOTIFY) {
        const auto &gone = reinterpret_cast<const xcb_destroy_notify_event_t &>(event);
        std::erase_if(m_outgoing,
                      [&gone](const Outgoing &each) { return each.window == gone.window; });
        return;
    }
    const auto &change = reinterpret_cast<const xcb_property_notify_event_t &>(event);
    if (type != XCB_PROPERTY_NOTIFY || change.state != XCB_PROPERTY_DELETE) {
        return;
    }
    const auto outgoing = std::ranges::find_if(m_outgoing, [&change](const Outgoing &each) {
        return each.window == change.window && each.property == change.atom;
    });
    if (outgoing != m_outgoing.end() && !sendNext(*outgoing)) {
        remove(outgoing);
    }
}

std::optional<SelectionSending::TimePoint> SelectionSending::nextDeadline() const {
    const auto next = std::ranges::min_element(m_outgoing, {}, &Outgoing::deadline);
    return next == m_outgoing.end() ? std::nullopt : std::optional(next->deadline);
}

void SelectionSending::handleDeadlines() {
    const auto now = std::chrono::steady_clock::now();
    for (auto each = m_outgoing.begin(); each != m_outgoing.end();) {
        each = each->deadline <= now ? remove(each) : std::next(each);
    }
}

// An empty part tells that there is no more.
bool SelectionSending::sendNext(Outgoing &outgoing) const {
    const qsizetype size = std::min(longestPart, outgoing.bytes.size() - outgoing.sent);
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, outgoing.window,
                        outgoing.property, outgoing.type, 8, static_cast<quint32>(size),
                        outgoing.bytes.constData() + outgoing.sent);
    outgoing.sent += size;
    outgoing.deadline = std::chrono::steady_clock::now() + sendTimeout;
    return size > 0;
}

SelectionSending::Position SelectionSending::remove(Position position) {
    const xcb_window_t window = position->window;
    const Position next = m_outgoing.erase(position);
    if (std::ranges::count(m_outgoing, window, &Outgoing::window) == 0) {
        watch(window, XCB_EVENT_MASK_NO_EVENT);
    }
    return next;
}

void SelectionSending::watch(xcb_window_t window, quint32 events) const {
    xcb_change_window_attributes(m_connection.get(), window, XCB_CW_EVENT_MASK, &events);
}

} // namespace perchly
