#pragma once

#include "Pasteboard.h"
#include "SelectionTransfers.h"

#include <QList>

namespace perchly {

struct SelectionAtoms;

/// Reads one copy as its reader wants it: its types, then an image, then a text, each only as far
/// as it is needed, whatever types are unwanted. Not for the main thread.
class SelectionReading {
public:
    using Completion = std::function<void(const PasteboardContent &content)>;

    /// The completion is called at most once and never from the constructor.
    SelectionReading(const SelectionConnection &connection, SelectionTransfers &transfers,
                     PasteboardRequest request, Completion completion);
    ~SelectionReading();
    SelectionReading(const SelectionReading &) = delete;
    SelectionReading &operator=(const SelectionReading &) = delete;

    [[nodiscard]] PasteboardSource source() const { return m_request.source; }
    [[nodiscard]] bool isFinished() const { return !m_completion; }
    [[nodiscard]] SelectionTransfer::TimePoint deadline() const { return m_deadline; }

    /// Ends with nothing, as for a copy that is no more or takes too long.
    void giveUp();

private:
    enum class Kind { Targets, Image, Text };

    void ask(Kind kind, xcb_atom_t target, qsizetype longest);
    void handle(Kind kind, const SelectionAnswer &answer);
    void handleTargets(const SelectionAnswer &answer);
    void handleImage(const SelectionAnswer &answer);
    void handleText(const SelectionAnswer &answer);
    void askForImage();
    void askForText();
    void finish();

    const SelectionConnection &m_connection;
    SelectionTransfers &m_transfers;
    PasteboardRequest m_request;
    Completion m_completion;
    SelectionTransfer::TimePoint m_deadline;
    std::weak_ptr<SelectionTransfer> m_transfer;
    QList<xcb_atom_t> m_images; ///< to ask for, in this order
    QList<xcb_atom_t> m_texts;  ///< likewise
    PasteboardContent m_content;
};

} // namespace perchly
