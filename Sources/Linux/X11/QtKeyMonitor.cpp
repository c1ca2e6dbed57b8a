#include "QtKeyMonitor.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <utility>

namespace perchly {

namespace {

// X keycodes of the digit row: 1 to 9, then 0.
constexpr quint32 firstDigitKey = 10;
constexpr quint32 lastDigitKey = 19;

QString charactersWithoutModifiers(const QKeyEvent &event) {
    const quint32 physical = event.nativeScanCode();
    if (physical >= firstDigitKey && physical <= lastDigitKey) {
        return QString::number((physical - firstDigitKey + 1) % 10);
    }
    // Qt identifies printable keys by the character with Shift; other keys have much larger values.
    if (event.key() < Qt::Key_Space || event.key() >= Qt::Key_Escape) {
        return {};
    }
    const auto character = static_cast<char32_t>(event.key());
    return QString::fromUcs4(&character, 1).toLower();
}

} // namespace

KeyPress keyPressFromQt(const QKeyEvent &event) {
    return {.key = static_cast<Qt::Key>(event.key()),
            .modifiers = modifiersFromQt(event.modifiers()),
            .charactersIgnoringModifiers = charactersWithoutModifiers(event),
            .isRepeat = event.isAutoRepeat()};
}

void QtKeyMonitor::start(Handler handler) {
    m_handler = std::move(handler);
    qApp->installEventFilter(this);
}

bool QtKeyMonitor::eventFilter(QObject *watched, QEvent *event) {
    if (!watched->isWindowType()) {
        return false;
    }
    if (event->type() == QEvent::ShortcutOverride) {
        m_verdict = handle(*event);
        event->setAccepted(*m_verdict); // keeps shortcuts from consuming the press that follows
        return *m_verdict;
    }
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto verdict = std::exchange(m_verdict, std::nullopt);
    const bool isConsumed = verdict ? *verdict : handle(*event);
    if (isConsumed) {
        event->accept();
    }
    return isConsumed;
}

bool QtKeyMonitor::handle(const QEvent &event) const {
    return m_handler(keyPressFromQt(static_cast<const QKeyEvent &>(event)));
}

} // namespace perchly
