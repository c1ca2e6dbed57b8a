#include "SelectionLoop.h"

#include "SelectionText.h"
#include "XcbPointer.h"

#include <algorithm>
#include <xcb/xfixes.h>

namespace perchly {

namespace {

PasteboardContent limited(const SelectionContents &contents, const PasteboardRequest &request) {
    PasteboardContent result;
    if (const QString *text = textOf(contents)) {
        result.types.append(pasteboardtype::text);
        if (fitsInUtf8(*text, request.maxTextBytes)) {
            result.text = *text;
        }
        return result;
    }
    const auto &image = std::get<SelectionImage>(contents);
    result.types = {pasteboardtype::png, pasteboardtype::tiff};
    const QByteArray &bytes = image.png.isEmpty() ? image.tiff : image.png;
    if (bytes.size() <= request.maxImageBytes) {
        result.image = bytes;
    }
    return result;
}

} // namespace

SelectionLoop::SelectionLoop(std::unique_ptr<SelectionConnection> connection, Listener listener,
                             SelectionMemory memory)
    : m_connection(std::move(connection))
    , m_listener(std::move(listener))
    , m_window(m_connection->makeWindow()) {
    followClipboard();
    resume(std::move(memory));
}

SelectionLoop::~SelectionLoop() = default;

void SelectionLoop::followClipboard() {
    xcb_connection_t *x = m_connection->get();
    const auto *extension = xcb_get_extension_data(x, &xcb_xfixes_id);
    const XcbPointer<xcb_xfixes_query_version_reply_t> version(
        extension && extension->present
            ? xcb_xfixes_query_version_reply(x, xcb_xfixes_query_version(x, 1, 0), nullptr)
            : nullptr);
    if (!version) {
        qWarning("The X server has no XFixes: the clipboard's history is missing.");
        return;
    }
    m_ownerEvent = extension->first_event + XCB_XFIXES_SELECTION_NOTIFY;
    xcb_xfixes_select_selection_input(x, m_window, m_connection->atoms().clipboard,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
}

void SelectionLoop::resume(SelectionMemory memory) {
    m_copies = memory.copies;
    m_write = memory.write;
    m_claimedWrite = memory.ourWrite;
    const bool isOwned = m_connection->ownerOf(m_connection->atoms().clipboard) != XCB_WINDOW_NONE;
    if (memory.ours && (memory.isWaiting || !isOwned)) {
        offer(std::move(*memory.ours), memory.ourWrite);
    } else if (isOwned && !memory.isFirst) {
        ++m_copies; // it may have been made meanwhile
        m_listener.copied(m_write);
    }
}

bool SelectionLoop::isAlive() const {
    return m_ownerEvent != 0 && m_connection->isAlive();
}

int SelectionLoop::descriptor() const {
    return xcb_get_file_descriptor(m_connection->get());
}

std::optional<SelectionLoop::TimePoint> SelectionLoop::nextDeadline() const {
    std::optional<TimePoint> next = m_transfers.nextDeadline();
    const auto consider = [&next](std::optional<TimePoint> other) {
        if (other && (!next || *other < *next)) {
            next = other;
        }
    };
    consider(m_sending.nextDeadline());
    for (const auto &[number, reading] : m_readings) {
        consider(reading->deadline());
    }
    return next;
}

void SelectionLoop::turn() {
    m_transfers.handleDeadlines();
    m_sending.handleDeadlines();
    const auto now = std::chrono::steady_clock::now();
    for (const auto &[number, reading] : m_readings) {
        if (reading->deadline() <= now) {
            reading->giveUp();
        }
    }
    xcb_connection_t *x = m_connection->get();
    while (true) {
        XcbPointer<xcb_generic_event_t> event(xcb_poll_for_event(x));
        if (!event) {
            xcb_flush(x); // which reads, too, while the server does not
            event.reset(xcb_poll_for_queued_event(x));
        }
        if (!event) {
            break;
        }
        handleEvent(*event);
    }
    std::erase_if(m_readings, [](const auto &entry) { return entry.second->isFinished(); });
}

void SelectionLoop::handleEvent(const xcb_generic_event_t &event) {
    const int type = event.response_type & 0x7f;
    if (type == m_ownerEvent) {
        handleOwner(event);
    } else if (type == XCB_SELECTION_REQUEST) {
        const auto &request = reinterpret_cast<const xcb_selection_request_event_t &>(event);
        if (m_offer && request.selection == m_connection->atoms().clipboard) {
            m_offer->answer(request);
        } else {
            SelectionOffer::refuse(*m_connection, request);
        }
    } else if (type == XCB_SELECTION_NOTIFY &&
               reinterpret_cast<const xcb_selection_notify_event_t &>(event).requestor ==
                   m_window) {
        m_isHandedOver = true;
    } else if (type == XCB_PROPERTY_NOTIFY &&
               reinterpret_cast<const xcb_property_notify_event_t &>(event).window == m_window) {
        claim(reinterpret_cast<const xcb_property_notify_event_t &>(event).time);
    } else {
        m_transfers.handleEvent(event);
        m_sending.handleEvent(event);
    }
}

// An owner that exits, or empties the clipboard, copies nothing.
void SelectionLoop::handleOwner(const xcb_generic_event_t &event) {
    const auto &change = reinterpret_cast<const xcb_xfixes_selection_notify_event_t &>(event);
    for (const auto &[number, reading] : m_readings) {
        if (reading->source() == PasteboardSource::Copied) {
            reading->giveUp();
        }
    }
    m_filter.handleOwner(change);
    if (change.owner == m_window) {
        m_write = m_claimedWrite;
        return;
    }
    // Else the owner has gone. If that was us the server has closed our connection.
    if (change.subtype != XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER) {
        return;
    }
    m_offer.reset();
    if (change.owner != XCB_WINDOW_NONE) {
        ++m_copies;
        m_listener.copied(m_write);
    }
}

void SelectionLoop::read(quint64 reading, const PasteboardRequest &request, quint64 copies) {
    const bool isCopied = request.source == PasteboardSource::Copied;
    if (isCopied && copies != m_copies) {
        m_listener.read(reading, {});
    } else if (const auto content = isCopied ? own(request) : std::nullopt) {
        m_listener.read(reading, *content);
    } else {
        m_readings[reading] =
            std::make_unique<SelectionReading>(*m_connection, m_transfers, request,
                                               [this, reading, request](PasteboardContent result) {
                                                   if (request.source == PasteboardSource::Copied) {
                                                       m_filter.apply(request, result);
                                                   }
                                                   m_listener.read(reading, result);
                                               });
    }
}

void SelectionLoop::cancel(quint64 reading) {
    m_readings.erase(reading);
}

SelectionMemory SelectionLoop::end() {
    for (const auto &[number, reading] : m_readings) {
        reading->giveUp();
    }
    m_readings.clear();
    SelectionMemory memory{.isFirst = false,
                           .copies = m_copies,
                           .write = m_write,
                           .ours = {},
                           .ourWrite = m_claimedWrite,
                           .isWaiting = m_claimed.has_value()};
    if (m_claimed) {
        memory.ours = std::exchange(m_claimed, std::nullopt);
    } else if (m_offer) {
        memory.ours = m_offer->contents();
        m_offer.reset();
    }
    return memory;
}

// The clipboard is claimed with the server's time, which a change of a property tells.
void SelectionLoop::offer(SelectionContents contents, quint64 write) {
    m_claimed = std::move(contents);
    m_claimedWrite = write;
    xcb_change_property(m_connection->get(), XCB_PROP_MODE_APPEND, m_window,
                        m_connection->atoms().timestamp, XCB_ATOM_INTEGER, 32, 0, nullptr);
}

void SelectionLoop::claim(xcb_timestamp_t time) {
    if (!m_claimed) {
        return;
    }
    xcb_set_selection_owner(m_connection->get(), m_window, m_connection->atoms().clipboard, time);
    if (m_connection->ownerOf(m_connection->atoms().clipboard) == m_window) {
        m_offer.emplace(*m_connection, m_sending, std::move(*m_claimed), time);
    } else {
        // Somebody was quicker, and is not known yet as what came last.
        m_write = m_claimedWrite;
        ++m_copies;
        m_listener.copied(m_write);
    }
    m_claimed.reset();
    if (m_isEnding) {
        askManager();
    }
}

void SelectionLoop::empty(quint64 write) {
    m_claimed.reset();
    m_claimedWrite = write;
    m_write = write;
    m_offer.reset();
    xcb_set_selection_owner(m_connection->get(), XCB_WINDOW_NONE, m_connection->atoms().clipboard,
                            XCB_CURRENT_TIME);
}

std::optional<PasteboardContent> SelectionLoop::own(const PasteboardRequest &request) const {
    if (m_claimed) {
        return limited(*m_claimed, request);
    }
    return m_offer ? std::optional(limited(m_offer->contents(), request)) : std::nullopt;
}

void SelectionLoop::handOver() {
    m_isEnding = true;
    if (!m_claimed) {
        askManager();
    }
}

void SelectionLoop::askManager() {
    const SelectionAtoms &atoms = m_connection->atoms();
    if (!m_offer || m_connection->ownerOf(atoms.clipboardManager) == XCB_WINDOW_NONE) {
        m_isHandedOver = true;
        return;
    }
    const QList<xcb_atom_t> forms = m_offer->forms();
    xcb_change_property(m_connection->get(), XCB_PROP_MODE_REPLACE, m_window, atoms.data,
                        XCB_ATOM_ATOM, 32, static_cast<quint32>(forms.size()), forms.constData());
    xcb_convert_selection(m_connection->get(), m_window, atoms.clipboardManager, atoms.saveTargets,
                          atoms.data, XCB_CURRENT_TIME);
}

} // namespace perchly
