#include "ShelfModel.h"

#include <utility>

namespace perchly {

ShelfModel::ShelfModel(Clock &clock, Preferences &preferences, AlertSound &alertSound,
                       QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_preferences(preferences)
    , m_alertSound(alertSound) {
    refreshDay();
    scheduleTick();
}

bool ShelfModel::staysOpen() const {
    return m_expanded &&
           (m_choosingWidget || m_controlling || m_typing || !m_controlError.isEmpty());
}

void ShelfModel::setExpanded(bool expanded) {
    if (!expanded) {
        setControlError({});
    }
    publish(m_expanded, expanded, &ShelfModel::expandedChanged);
}

void ShelfModel::setKeyboardOpen(bool open) {
    publish(m_keyboardOpen, open, &ShelfModel::keyboardOpenChanged);
}

void ShelfModel::setChoosingWidget(bool choosing) {
    publish(m_choosingWidget, choosing, &ShelfModel::choosingWidgetChanged);
}

void ShelfModel::setTyping(bool typing) {
    publish(m_typing, typing, &ShelfModel::typingChanged);
}

void ShelfModel::setDragging(bool dragging) {
    publish(m_dragging, dragging, &ShelfModel::draggingChanged);
}

void ShelfModel::setDockEdge(ShelfEdge edge) {
    publish(m_dockEdge, edge, &ShelfModel::dockEdgeChanged);
}

void ShelfModel::setQuietFocus(bool quiet) {
    publish(m_quietFocus, quiet, &ShelfModel::quietFocusChanged);
}

void ShelfModel::setCompactWidth(double width) {
    publish(m_compactWidth, width, &ShelfModel::compactWidthChanged);
}

void ShelfModel::setCompactHeight(double height) {
    publish(m_compactHeight, height, &ShelfModel::compactHeightChanged);
}

void ShelfModel::setHardwareNotchWidth(double width) {
    publish(m_hardwareNotchWidth, width, &ShelfModel::hardwareNotchWidthChanged);
}

void ShelfModel::setLeft(Widget widget) {
    publish(m_left, widget, &ShelfModel::leftChanged);
}

void ShelfModel::setRight(Widget widget) {
    publish(m_right, widget, &ShelfModel::rightChanged);
}

void ShelfModel::setLeftTitle(const QString &title) {
    setLeft(widgetFromTitle(title).value_or(Widget::Clock));
}

void ShelfModel::setRightTitle(const QString &title) {
    setRight(widgetFromTitle(title).value_or(Widget::Timer));
}

void ShelfModel::setActivity(const QString &activity) {
    publish(m_activity, activity, &ShelfModel::activityChanged);
}

void ShelfModel::setMedia(const Media &media) {
    if (media != m_media) {
        publish(m_media, media, &ShelfModel::mediaChanged);
    }
}

void ShelfModel::setControlError(const QString &error, const QString &title) {
    m_errorTitle = title;
    publish(m_controlError, error, &ShelfModel::controlErrorChanged);
}

void ShelfModel::setControlling(bool controlling) {
    publish(m_controlling, controlling, &ShelfModel::controllingChanged);
}

} // namespace perchly
