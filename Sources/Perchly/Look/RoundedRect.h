#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// A rectangle with round corners, painted in one piece: Qt's Rectangle shows seams at its corners
/// if the shelf's or the display's scale is not a whole number. Software rendering paints it
/// directly, so it is sharp at every scale and needs no pixmap.
class RoundedRect : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed FINAL)
    /// If valid, the fill is a gradient from `color` at the top to this colour at the bottom.
    Q_PROPERTY(QColor bottomColor MEMBER m_bottomColor NOTIFY changed FINAL)
    Q_PROPERTY(double radius MEMBER m_radius NOTIFY changed FINAL)
    /// The border lies inside the rectangle; a width of 0 hides it.
    Q_PROPERTY(QColor borderColor MEMBER m_borderColor NOTIFY changed FINAL)
    Q_PROPERTY(double borderWidth MEMBER m_borderWidth NOTIFY changed FINAL)
public:
    explicit RoundedRect(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void changed();

protected:
    QSGNode *updatePaintNode(QSGNode *previous, UpdatePaintNodeData *data) override;

private:
    QColor m_color = Qt::white;
    QColor m_bottomColor;
    double m_radius = 0;
    QColor m_borderColor = Qt::transparent;
    double m_borderWidth = 0;
};

} // namespace perchly
