#pragma once

#include <QByteArray>
#include <xcb/xcb.h>

#include <chrono>
#include <functional>

namespace perchly {

class SelectionConnection;

/// One form of a copy to ask its owner for.
struct SelectionQuestion {
    xcb_atom_t selection = XCB_ATOM_NONE;
    xcb_atom_t target = XCB_ATOM_NONE;
    qsizetype longest = 0; ///< bytes; what is longer is passed by without being held
};

/// What came of it.
struct SelectionAnswer {
    enum class Outcome { Delivered, Refused, TooLong, Silent };

    Outcome outcome = Outcome::Refused;
    xcb_atom_t type = XCB_ATOM_NONE;
    int format = 0; ///< bits of one value
    QByteArray bytes = {};
};

/// Fetches one form of a copy, whole or in increments, whatever its owner does. It has a window of
/// its own, so that what belongs to a transfer given up cannot be taken for another's. An owner
/// that has begun to send is always heard out, within bounds. Not for the main thread.
class SelectionTransfer {
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    /// Called at most once.
    using Completion = std::function<void(const SelectionAnswer &answer)>;

    SelectionTransfer(const SelectionConnection &connection, const SelectionQuestion &question,
                      Completion completion);
    ~SelectionTransfer();
    SelectionTransfer(const SelectionTransfer &) = delete;
    SelectionTransfer &operator=(const SelectionTransfer &) = delete;

    [[nodiscard]] xcb_window_t window() const { return m_window; }
    /// Nothing more is to be expected.
    [[nodiscard]] bool isFinished() const { return m_state == State::Finished; }
    /// When to call giveUp().
    [[nodiscard]] TimePoint deadline() const { return m_deadline; }

    void handleAnswer(const xcb_selection_notify_event_t &event);
    void handleProperty(const xcb_property_notify_event_t &event);
    /// The answer is not wanted any more.
    void abandon();
    void giveUp();

private:
    enum class State { Asked, Receiving, Finished };

    void takeIncrement();
    void postpone();
    void stopHolding();
    void complete(SelectionAnswer::Outcome outcome);
    void finish(SelectionAnswer::Outcome outcome);

    const SelectionConnection &m_connection;
    SelectionQuestion m_question;
    Completion m_completion;
    xcb_window_t m_window;
    TimePoint m_latest; ///< however busily the owner sends
    TimePoint m_deadline;
    State m_state = State::Asked;
    SelectionAnswer m_answer;
};

} // namespace perchly
