#include "QtKeyMonitor.h"

#include "KeyTranslation.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace perchly {

QtKeyMonitor::QtKeyMonitor(QObject *parent)
    : QObject(parent) {}

void QtKeyMonitor::start(Handler handler) {
    if (!m_handler) {
        qApp->installEventFilter(this);
    }
    m_handler = std::move(handler);
}

bool QtKeyMonitor::Verdict::isAbout(const QKeyEvent &event) const {
    return timestamp == event.timestamp() && key == event.key() &&
           scanCode == event.nativeScanCode();
}

bool QtKeyMonitor::eventFilter(QObject *watched, QEvent *event) {
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if ((!isOverride && event->type() != QEvent::KeyPress) || !watched->isWindowType()) {
        return QObject::eventFilter(watched, event);
    }

    const auto &press = *static_cast<QKeyEvent *>(event);
    if (isOverride) {
        m_verdict = Verdict{press.timestamp(), press.key(), press.nativeScanCode(), handle(press)};
        // An accepted override keeps shortcuts from taking the press that follows.
        event->setAccepted(m_verdict->isConsumed);
        return m_verdict->isConsumed;
    }
    const bool isKnown = m_verdict && m_verdict->isAbout(press);
    const bool isConsumed = isKnown ? m_verdict->isConsumed : handle(press);
    m_verdict.reset();
    if (isConsumed) {
        event->accept();
    }
    return isConsumed;
}

bool QtKeyMonitor::handle(const QKeyEvent &event) {
    return m_handler && m_handler(keyPressFromQt(event));
}

} // namespace perchly
