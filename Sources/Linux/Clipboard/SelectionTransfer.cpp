#include "SelectionTransfer.h"

#include "SelectionConnection.h"

#include <algorithm>
#include <utility>

namespace perchly {

using namespace std::chrono_literals;
using Outcome = SelectionAnswer::Outcome;

namespace {

constexpr auto readTimeout = 3s;
constexpr auto maxTransferTime = 60s;

} // namespace

SelectionTransfer::SelectionTransfer(const SelectionConnection &connection,
                                     const SelectionQuestion &question, Completion completion)
    : m_connection(connection)
    , m_question(question)
    , m_completion(std::move(completion))
    , m_window(connection.makeWindow())
    , m_latest(std::chrono::steady_clock::now() + maxTransferTime) {
    postpone();
    xcb_convert_selection(connection.get(), m_window, question.selection, question.target,
                          connection.atoms().data, XCB_CURRENT_TIME);
}

SelectionTransfer::~SelectionTransfer() {
    xcb_destroy_window(m_connection.get(), m_window);
}

void SelectionTransfer::handleAnswer(const xcb_selection_notify_event_t &event) {
    if (m_state != State::Asked || event.selection != m_question.selection ||
        event.target != m_question.target) {
        return;
    }
    if (event.property != m_connection.atoms().data) {
        finish(Outcome::Refused);
        return;
    }
    SelectionProperty property =
        m_connection.takeProperty(m_window, m_connection.atoms().data, m_question.longest);
    if (property.type == m_connection.atoms().increments) {
        // Its removal, just now, asks for the first increment.
        m_state = State::Receiving;
        postpone();
        return;
    }
    m_answer.type = property.type;
    m_answer.format = property.format;
    m_answer.bytes = std::move(property.bytes);
    if (property.type == XCB_ATOM_NONE) {
        finish(Outcome::Refused);
    } else {
        finish(property.isWhole ? Outcome::Delivered : Outcome::TooLong);
    }
}

void SelectionTransfer::handleProperty(const xcb_property_notify_event_t &event) {
    if (m_state == State::Receiving && event.atom == m_connection.atoms().data &&
        event.state == XCB_PROPERTY_NEW_VALUE) {
        postpone();
        takeIncrement();
    }
}

void SelectionTransfer::takeIncrement() {
    const qsizetype room = m_question.longest - m_answer.bytes.size();
    const SelectionProperty part =
        m_connection.takeProperty(m_window, m_connection.atoms().data, room);
    if (part.type == XCB_ATOM_NONE) {
        return; // taken along with an earlier announcement
    }
    if (!part.isWhole) {
        stopHolding();
        complete(Outcome::TooLong);
        return;
    }
    if (part.bytes.isEmpty()) {
        finish(Outcome::Delivered);
        return;
    }
    m_answer.type = part.type;
    m_answer.format = part.format;
    m_answer.bytes.append(part.bytes);
}

void SelectionTransfer::abandon() {
    m_completion = nullptr;
    stopHolding();
}

void SelectionTransfer::giveUp() {
    finish(Outcome::Silent);
}

void SelectionTransfer::postpone() {
    m_deadline = std::min(std::chrono::steady_clock::now() + readTimeout, m_latest);
}

void SelectionTransfer::stopHolding() {
    m_answer.bytes.clear();
    m_question.longest = 0;
}

void SelectionTransfer::complete(Outcome outcome) {
    if (m_completion) {
        m_answer.outcome = outcome;
        std::exchange(m_completion, nullptr)(m_answer);
    }
}

void SelectionTransfer::finish(Outcome outcome) {
    m_state = State::Finished;
    complete(outcome);
}

} // namespace perchly
