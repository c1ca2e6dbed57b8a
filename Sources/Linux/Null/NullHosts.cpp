#include "NullHosts.h"

#include <QUrl>
#include <QWindow>

namespace perchly {

std::optional<PreferenceValue> NullPreferences::value(const QString &key) const {
    const auto found = m_values.constFind(key);
    return found == m_values.cend() ? std::nullopt : std::optional(*found);
}

void NullPreferences::setValue(const QString &key, const PreferenceValue &value) {
    m_values.insert(key, value);
    Q_EMIT changed(key);
}

void NullPreferences::removeValue(const QString &key) {
    if (m_values.remove(key) > 0) {
        Q_EMIT changed(key);
    }
}

void NullPanelHost::attach(QWindow *panel) {
    m_panel = panel;
}

void NullPanelHost::place(const ScreenRect &frame, const QMarginsF &margins) {
    if (m_panel) {
        m_panel->resize(qRound(frame.width + margins.left() + margins.right()),
                        qRound(frame.height + margins.top() + margins.bottom()));
    }
}

void NullPanelHost::orderFront() {
    if (m_panel) {
        m_panel->show();
    }
}

void NullPanelHost::activate(QWindow *window) {
    window->show();
    window->requestActivate();
}

void NullApplications::open(const QString &path, Completion completion) {
    openUrl(QUrl::fromLocalFile(path), std::move(completion));
}

void NullApplications::openUrl(const QUrl &url, Completion completion) {
    if (completion) {
        const QString error = QStringLiteral("Nothing here can open “%1”.")
                                  .arg(url.toDisplayString(QUrl::PreferLocalFile));
        QMetaObject::invokeMethod(
            &m_receiver, [completion = std::move(completion), error] { completion(error); },
            Qt::QueuedConnection);
    }
}

} // namespace perchly
