#pragma once

#include "OpenPanel.h"

#include <optional>

namespace perchly {

/// A dialog in which the test chooses.
class FakeOpenPanel : public OpenPanel {
public:
    Task ask(const Request &request, Completion completion) override;

    /// What the open dialog was asked to show; nothing while none is open.
    [[nodiscard]] std::optional<Request> open() const;

    /// Closes the open dialog with this choice, which is empty for "Cancel". There must be one.
    void choose(const QList<QUrl> &urls);

private:
    struct Dialog {
        Request request;
        Completion completion;
    };
    class Handle;

    std::shared_ptr<Dialog> m_dialog;
};

} // namespace perchly
