#pragma once

#include <QObject>
#include <QPoint>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>
#include <QWindow>

namespace perchly {

/// Puts tooltips into windows that have the property "nestsToolTips": a window system may have no
/// other place for a tooltip of the panel.
class ToolTipNesting : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
public:
    using QObject::QObject;

    /// Call it before the tooltip of an item is shown. Returns where its position counts from, on
    /// the screen.
    Q_INVOKABLE static QPoint nest(QWindow *toolTip, QQuickItem *item);
};

} // namespace perchly
