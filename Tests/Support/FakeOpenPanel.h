#pragma once

#include "OpenPanel.h"
#include "PendingCalls.h"

#include <optional>

namespace perchly {

/// A dialog in which the test chooses.
class FakeOpenPanel : public OpenPanel {
public:
    Task ask(const Request &request, Completion completion) override {
        return m_dialogs.add({request, std::move(completion)});
    }

    /// What the open dialog was asked to show; nothing while none is open.
    [[nodiscard]] std::optional<Request> open() const {
        return m_dialogs.count() > 0 ? std::optional(m_dialogs.last().request) : std::nullopt;
    }

    /// Closes the open dialog with this choice, which is empty for "Cancel". There must be one.
    void choose(const QList<QUrl> &urls) {
        m_dialogs.take(m_dialogs.count() - 1)->completion(urls);
    }

private:
    struct Dialog {
        Request request;
        Completion completion;
    };

    PendingCalls<Dialog> m_dialogs;
};

} // namespace perchly
