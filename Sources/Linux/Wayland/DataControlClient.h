#pragma once

#include "CopyClient.h"

#include <QByteArrayList>

#include <memory>
#include <vector>

struct wl_display;
struct wl_registry;
struct wl_seat;
struct zwlr_data_control_device_v1;
struct zwlr_data_control_manager_v1;
struct zwlr_data_control_offer_v1;
struct zwlr_data_control_source_v1;

namespace perchly {

class OwnCopy;

/// Reads and makes copies without the keyboard, through the compositor in WAYLAND_DISPLAY: by
/// ext-data-control, or the older wlr-data-control, which has the same requests. For a thread with
/// an event loop.
class DataControlClient : public CopyClient {
public:
    explicit DataControlClient(Changed changed);
    ~DataControlClient() override;

    /// Identifies this program's copies.
    static constexpr quint32 ownClient = 1;

    [[nodiscard]] bool isAlive() const override;
    [[nodiscard]] int descriptor() const override;
    void handleEvents() override;
    void shutDown() const override;
    [[nodiscard]] std::optional<QByteArrayList>
    offered(PasteboardSource source, const QByteArrayList &formats, TimePoint latest) override;
    [[nodiscard]] CopyAnswer fetch(PasteboardSource source, const QByteArray &format,
                                   qsizetype maxBytes, TimePoint latest) override;
    [[nodiscard]] bool isFromManager() override { return false; }

    /// Puts a copy on the clipboard, or empties it. Sends it to programs that paste it, until
    /// another copy is made.
    void offer(std::unique_ptr<OwnCopy> copy);

private:
    struct Listeners;
    struct Offer {
        zwlr_data_control_offer_v1 *object = nullptr;
        QByteArrayList formats = {};
    };
    class Sending;

    void bind(wl_registry *registry, quint32 name, const QByteArray &interface, quint32 version);
    void select(PasteboardSource source, zwlr_data_control_offer_v1 *object);
    [[nodiscard]] Offer *current(PasteboardSource source);
    void send(const QByteArray &format, int descriptor);
    bool waitFor(int pipe, TimePoint latest);

    std::unique_ptr<wl_display, void (*)(wl_display *)> m_display;
    Changed m_changed;
    zwlr_data_control_manager_v1 *m_manager = nullptr;
    zwlr_data_control_device_v1 *m_device = nullptr;
    wl_seat *m_seat = nullptr;
    std::vector<Offer> m_offers; ///< announced or current
    zwlr_data_control_offer_v1 *m_copied = nullptr;
    zwlr_data_control_offer_v1 *m_selected = nullptr;
    bool m_isInterrupted = false; ///< a copy replaced the one that fetch() reads
    zwlr_data_control_source_v1 *m_source = nullptr;
    std::unique_ptr<OwnCopy> m_own;
    std::vector<std::unique_ptr<Sending>> m_sendings;
};

} // namespace perchly
