#include "SelectionTransfers.h"

#include <algorithm>

namespace perchly {

std::weak_ptr<SelectionTransfer>
SelectionTransfers::start(const SelectionQuestion &question,
                          SelectionTransfer::Completion completion) {
    m_transfers.push_back(
        std::make_shared<SelectionTransfer>(m_connection, question, std::move(completion)));
    return m_transfers.back();
}

void SelectionTransfers::handleEvent(const xcb_generic_event_t &event) {
    switch (event.response_type & 0x7f) {
    case XCB_SELECTION_NOTIFY: {
        const auto &answer = reinterpret_cast<const xcb_selection_notify_event_t &>(event);
        if (const auto transfer = find(answer.requestor)) {
            transfer->handleAnswer(answer);
        }
        break;
    }
    case XCB_PROPERTY_NOTIFY: {
        const auto &change = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        if (const auto transfer = find(change.window)) {
            transfer->handleProperty(change);
        }
        break;
    }
    default:
        return;
    }
    removeFinished();
}

std::optional<SelectionTransfer::TimePoint> SelectionTransfers::nextDeadline() const {
    const auto next = std::ranges::min_element(m_transfers, {}, &SelectionTransfer::deadline);
    return next == m_transfers.end() ? std::nullopt : std::optional((*next)->deadline());
}

void SelectionTransfers::handleDeadlines() {
    const auto now = std::chrono::steady_clock::now();
    const auto transfers = m_transfers; // an answer may start another one
    for (const auto &transfer : transfers) {
        if (transfer->deadline() <= now) {
            transfer->giveUp();
        }
    }
    removeFinished();
}

std::shared_ptr<SelectionTransfer> SelectionTransfers::find(xcb_window_t window) const {
    const auto found = std::ranges::find(m_transfers, window, &SelectionTransfer::window);
    return found == m_transfers.end() ? nullptr : *found;
}

void SelectionTransfers::removeFinished() {
    std::erase_if(m_transfers, [](const auto &transfer) { return transfer->isFinished(); });
}

} // namespace perchly
