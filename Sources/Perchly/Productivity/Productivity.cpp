#include "Productivity.h"

namespace perchly {

void Productivity::hold(const QList<QUrl> &urls) {
    QList<QUrl> held = m_held;
    for (const QUrl &url : urls) {
        const bool link =
            url.scheme() == QLatin1StringView("https") || url.scheme() == QLatin1StringView("http");
        if ((url.isLocalFile() || link) && !held.contains(url)) {
            held.append(url);
        }
    }
    if (held != m_held) {
        m_held = held;
        Q_EMIT heldChanged();
    }
}

void Productivity::setMessage(const QString &message) {
    m_message = message;
    Q_EMIT messageChanged();
}

} // namespace perchly
