#include "SelectionClient.h"

#include <algorithm>
#include <poll.h>
#include <span>

namespace perchly {

using namespace std::chrono_literals;
using Outcome = CopyAnswer::Outcome;

namespace {

constexpr auto silenceTimeout = 3s;
constexpr qsizetype maxDiscarded = 16;
constexpr qsizetype maxTargetsBytes = 1 << 20;

int typeOf(const xcb_generic_event_t &event) {
    return event.response_type & 0x7f;
}

/// The window in which data, or a refusal, has arrived.
xcb_window_t receiverOf(const xcb_generic_event_t &event) {
    if (typeOf(event) == XCB_SELECTION_NOTIFY) {
        return reinterpret_cast<const xcb_selection_notify_event_t &>(event).requestor;
    }
    const auto &change = reinterpret_cast<const xcb_property_notify_event_t &>(event);
    return typeOf(event) == XCB_PROPERTY_NOTIFY && change.state == XCB_PROPERTY_NEW_VALUE
               ? change.window
               : xcb_window_t{XCB_WINDOW_NONE};
}

} // namespace

SelectionClient::SelectionClient(Changed changed)
    : m_connection(xcb_connect(nullptr, nullptr), xcb_disconnect)
    , m_changed(std::move(changed)) {
    xcb_connection_t *x = m_connection.get();
    const auto *extension = xcb_get_extension_data(x, &xcb_xfixes_id);
    if (!extension || !extension->present) {
        return;
    }
    m_ownerEvent = extension->first_event + XCB_XFIXES_SELECTION_NOTIFY;
    m_root = xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
    xcb_discard_reply(x, xcb_xfixes_query_version(x, 1, 0).sequence);
    xcb_xfixes_select_selection_input(x, m_root, atom("CLIPBOARD"),
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    xcb_flush(x);
}

bool SelectionClient::isAlive() const {
    return m_ownerEvent != 0 && xcb_connection_has_error(m_connection.get()) == 0;
}

void SelectionClient::handleEvents() {
    while (const auto event = nextEvent()) {
        handle(*event);
    }
}

xcb_atom_t SelectionClient::atom(const QByteArray &name) {
    xcb_atom_t &atom = m_atoms[name];
    if (atom == XCB_ATOM_NONE) {
        const auto cookie = xcb_intern_atom(m_connection.get(), 0,
                                            static_cast<quint16>(name.size()), name.constData());
        const XcbPointer<xcb_intern_atom_reply_t> answer(
            xcb_intern_atom_reply(m_connection.get(), cookie, nullptr));
        atom = answer ? answer->atom : xcb_atom_t{XCB_ATOM_NONE};
    }
    return atom;
}

bool SelectionClient::isFromManager() {
    const auto cookie = xcb_get_selection_owner(m_connection.get(), atom("CLIPBOARD_MANAGER"));
    const XcbPointer<xcb_get_selection_owner_reply_t> answer(
        xcb_get_selection_owner_reply(m_connection.get(), cookie, nullptr));
    return m_owner != 0 && answer && m_owner == clientOf(answer->owner);
}

quint32 SelectionClient::clientOf(xcb_window_t window) const {
    return window & ~xcb_get_setup(m_connection.get())->resource_id_mask;
}

std::optional<QByteArrayList>
SelectionClient::offered(PasteboardSource source, const QByteArrayList &formats, TimePoint latest) {
    const Property targets = convert(source, atom("TARGETS"), maxTargetsBytes, latest);
    if (targets.outcome != Outcome::Delivered || targets.format != 32) {
        return std::nullopt;
    }
    const std::span offers(reinterpret_cast<const xcb_atom_t *>(targets.bytes.constData()),
                           static_cast<std::size_t>(targets.bytes.size()) / sizeof(xcb_atom_t));
    QByteArrayList result;
    for (const QByteArray &format : formats) {
        if (std::ranges::find(offers, atom(format)) != offers.end()) {
            result.append(format);
        }
    }
    return result;
}

CopyAnswer SelectionClient::fetch(PasteboardSource source, const QByteArray &format,
                                  qsizetype maxBytes, TimePoint latest) {
    const xcb_atom_t target = atom(format);
    const Property property = convert(source, target, maxBytes, latest);
    CopyAnswer answer{property.outcome, property.bytes};
    const auto isOf = [&](const char *type) { return property.type == atom(type); };
    const bool isText = !format.startsWith("image/");
    const bool isUnicode =
        isOf("UTF8_STRING") || isOf("text/plain;charset=utf-8") || isOf("text/plain");
    if (isText && isOf("STRING")) {
        answer.encoding = CopyAnswer::Encoding::Latin1;
    } else if (answer.outcome == Outcome::Delivered &&
               !(isText ? isUnicode : property.type == target)) {
        answer.outcome = Outcome::Refused; // such as an obsolete encoding
    }
    if (answer.outcome == Outcome::Delivered && property.format != 8) {
        answer.outcome = Outcome::Refused;
    }
    return answer;
}

SelectionClient::Property SelectionClient::convert(PasteboardSource source, xcb_atom_t target,
                                                   qsizetype maxBytes, TimePoint latest) {
    const xcb_atom_t selection = atom(source == PasteboardSource::Copied ? "CLIPBOARD" : "PRIMARY");
    xcb_connection_t *x = m_connection.get();
    // A separate window, so that late data of another transfer is not mistaken for this one's.
    const xcb_window_t window = xcb_generate_id(x);
    const quint32 events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(x, XCB_COPY_FROM_PARENT, window, m_root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    xcb_convert_selection(x, window, selection, target, atom("PERCHLY_DATA"), XCB_CURRENT_TIME);
    m_fetched = selection;
    m_isInterrupted = false;
    Property answer = receive(window, maxBytes, latest);
    if (answer.outcome == Outcome::Delivered || answer.outcome == Outcome::Refused) {
        xcb_destroy_window(x, window);
    } else {
        m_discarded.append(window);
        if (m_discarded.size() > maxDiscarded) {
            xcb_destroy_window(x, m_discarded.takeFirst());
        }
    }
    return answer;
}

SelectionClient::Property SelectionClient::receive(xcb_window_t window, qsizetype maxBytes,
                                                   TimePoint latest) {
    if (!waitFor(window, XCB_SELECTION_NOTIFY, latest)) {
        return {};
    }
    // A refusal has no property.
    Property whole = take(window, maxBytes);
    if (whole.type != atom("INCR")) {
        return whole;
    }
    // Taking the property requests the first part.
    whole = {.outcome = Outcome::Delivered};
    while (waitFor(window, XCB_PROPERTY_NOTIFY, latest)) {
        const Property part = take(window, maxBytes - whole.bytes.size());
        if (part.outcome == Outcome::TooLong) {
            return part;
        }
        if (part.outcome == Outcome::Refused) {
            continue; // taken on an earlier event
        }
        if (part.bytes.isEmpty()) {
            return whole;
        }
        whole.type = part.type;
        whole.format = part.format;
        whole.bytes.append(part.bytes);
    }
    return {};
}

bool SelectionClient::waitFor(xcb_window_t window, int type, TimePoint latest) {
    const auto deadline = std::min(TimePoint::clock::now() + silenceTimeout, latest);
    while (isAlive() && !m_isInterrupted) {
        const auto event = nextEvent();
        if (event && typeOf(*event) == type && receiverOf(*event) == window) {
            return true;
        }
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - TimePoint::clock::now());
        if (left <= 0ms) {
            break;
        }
        if (event) {
            handle(*event);
        } else {
            pollfd watched{descriptor(), POLLIN, 0};
            poll(&watched, 1, static_cast<int>(left.count()));
        }
    }
    return false;
}

SelectionClient::Property SelectionClient::take(xcb_window_t window, qsizetype maxBytes) {
    xcb_connection_t *x = m_connection.get();
    const xcb_atom_t name = atom("PERCHLY_DATA");
    const auto cookie = xcb_get_property(x, 1, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0,
                                         static_cast<quint32>((maxBytes + 3) / 4));
    const XcbPointer<xcb_get_property_reply_t> property(xcb_get_property_reply(x, cookie, nullptr));
    if (!property || property->type == XCB_ATOM_NONE) {
        return {.outcome = Outcome::Refused};
    }
    Property answer{Outcome::Delivered, property->type, property->format, {}};
    const int length = xcb_get_property_value_length(property.get());
    if (property->bytes_after > 0) {
        xcb_delete_property(x, window, name); // otherwise only a complete read deletes it
    }
    if (property->bytes_after > 0 || length > maxBytes) {
        answer.outcome = Outcome::TooLong;
    } else {
        answer.bytes =
            QByteArray(static_cast<const char *>(xcb_get_property_value(property.get())), length);
    }
    return answer;
}

XcbPointer<xcb_generic_event_t> SelectionClient::nextEvent() const {
    XcbPointer<xcb_generic_event_t> event(xcb_poll_for_event(m_connection.get()));
    if (!event) {
        xcb_flush(m_connection.get()); // may read events if the server is not reading
        event.reset(xcb_poll_for_queued_event(m_connection.get()));
    }
    return event;
}

void SelectionClient::handle(const xcb_generic_event_t &event) {
    const xcb_window_t receiver = receiverOf(event);
    if (typeOf(event) == m_ownerEvent) {
        handleOwner(reinterpret_cast<const xcb_xfixes_selection_notify_event_t &>(event));
    } else if (m_discarded.contains(receiver) && take(receiver, 0).outcome == Outcome::Delivered) {
        // An empty part is the last one.
        xcb_destroy_window(m_connection.get(), receiver);
        m_discarded.removeOne(receiver);
    }
}

void SelectionClient::handleOwner(const xcb_xfixes_selection_notify_event_t &event) {
    m_isInterrupted = m_isInterrupted || event.selection == m_fetched;
    CopyChange change{.time = std::chrono::milliseconds(event.timestamp)};
    if (event.subtype != XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER) {
        change.kind = CopyChange::Kind::Released;
        m_owner = 0; // the server may reuse its window IDs
    } else if (event.owner == XCB_WINDOW_NONE) {
        change.kind = CopyChange::Kind::Released;
    } else {
        m_owner = clientOf(event.owner);
    }
    change.client = m_owner;
    m_changed(change);
}

} // namespace perchly
