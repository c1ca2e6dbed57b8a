#include "FakeOpenPanel.h"

#include <QtGlobal>

namespace perchly {

class FakeOpenPanel::Handle : public ScheduledTask {
public:
    Handle(FakeOpenPanel &panel, std::shared_ptr<Dialog> dialog)
        : m_panel(panel)
        , m_dialog(std::move(dialog)) {}
    ~Handle() override {
        if (m_panel.m_dialog == m_dialog) {
            m_panel.m_dialog.reset();
        }
    }

private:
    FakeOpenPanel &m_panel;
    std::shared_ptr<Dialog> m_dialog;
};

Task FakeOpenPanel::ask(const Request &request, Completion completion) {
    m_dialog = std::make_shared<Dialog>(Dialog{request, std::move(completion)});
    return std::make_unique<Handle>(*this, m_dialog);
}

std::optional<OpenPanel::Request> FakeOpenPanel::open() const {
    return m_dialog ? std::optional(m_dialog->request) : std::nullopt;
}

void FakeOpenPanel::choose(const QList<QUrl> &urls) {
    Q_ASSERT(m_dialog);
    const auto dialog = std::exchange(m_dialog, nullptr);
    dialog->completion(urls);
}

} // namespace perchly
