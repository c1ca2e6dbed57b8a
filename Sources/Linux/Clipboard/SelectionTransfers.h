#pragma once

#include "SelectionTransfer.h"

#include <memory>
#include <optional>
#include <vector>

namespace perchly {

/// The transfers under way, each fed with what concerns it and ended at its deadline. Not for the
/// main thread.
class SelectionTransfers {
public:
    explicit SelectionTransfers(const SelectionConnection &connection)
        : m_connection(connection) {}

    /// The answer comes from a later event or deadline. The transfer is kept until it is finished,
    /// also when it is abandoned.
    std::weak_ptr<SelectionTransfer> start(const SelectionQuestion &question,
                                           SelectionTransfer::Completion completion);

    void handleEvent(const xcb_generic_event_t &event);
    [[nodiscard]] std::optional<SelectionTransfer::TimePoint> nextDeadline() const;
    void handleDeadlines();

private:
    [[nodiscard]] std::shared_ptr<SelectionTransfer> find(xcb_window_t window) const;
    void removeFinished();

    const SelectionConnection &m_connection;
    std::vector<std::shared_ptr<SelectionTransfer>> m_transfers;
};

} // namespace perchly
