#pragma once

#include "CopyClient.h"
#include "XcbPointer.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <xcb/xfixes.h>

#include <chrono>
#include <functional>
#include <memory>
#include <sys/socket.h>

namespace perchly {

/// Reads selections of the X server in DISPLAY. Once an owner starts sending, all of its data is
/// read, by later calls if fetch() gives up.
class SelectionClient : public CopyClient {
public:
    explicit SelectionClient(Changed changed);

    [[nodiscard]] bool isAlive() const override;
    [[nodiscard]] int descriptor() const override {
        return xcb_get_file_descriptor(m_connection.get());
    }
    void handleEvents() override;
    void shutDown() const override { ::shutdown(descriptor(), SHUT_RDWR); }
    [[nodiscard]] std::optional<QByteArrayList>
    offered(PasteboardSource source, const QByteArrayList &formats, TimePoint latest) override;
    [[nodiscard]] CopyAnswer fetch(PasteboardSource source, const QByteArray &format,
                                   qsizetype maxBytes, TimePoint latest) override;
    [[nodiscard]] bool isFromManager() override;

private:
    struct Property {
        CopyAnswer::Outcome outcome = CopyAnswer::Outcome::Silent;
        xcb_atom_t type = XCB_ATOM_NONE;
        int format = 0; ///< bits per value
        QByteArray bytes = {};
    };

    [[nodiscard]] xcb_atom_t atom(const QByteArray &name);
    /// 0 for XCB_WINDOW_NONE.
    [[nodiscard]] quint32 clientOf(xcb_window_t window) const;
    [[nodiscard]] Property convert(PasteboardSource source, xcb_atom_t target, qsizetype maxBytes,
                                   TimePoint latest);
    [[nodiscard]] Property receive(xcb_window_t window, qsizetype maxBytes, TimePoint latest);
    [[nodiscard]] bool waitFor(xcb_window_t window, int type, TimePoint latest);
    [[nodiscard]] Property take(xcb_window_t window, qsizetype maxBytes);
    [[nodiscard]] XcbPointer<xcb_generic_event_t> nextEvent() const;
    void handle(const xcb_generic_event_t &event);
    void handleOwner(const xcb_xfixes_selection_notify_event_t &event);

    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> m_connection;
    Changed m_changed;
    QHash<QByteArray, xcb_atom_t> m_atoms;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    int m_ownerEvent = 0; ///< 0 if the server cannot report owner changes
    quint32 m_owner = 0;  ///< the client that made the last copy or emptied the clipboard
    xcb_atom_t m_fetched = XCB_ATOM_NONE; ///< the selection that fetch() reads
    bool m_isInterrupted = false;         ///< its owner changed since fetch() was called
    QList<xcb_window_t> m_discarded;      ///< windows of abandoned transfers
};

} // namespace perchly
