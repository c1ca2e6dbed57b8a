#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// A rectangle with round corners, painted in one piece: the renderer's own one shows seams at its
/// corners where the shelf's scale, or the display's, is not a whole number.
class RoundedRect : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)
    Q_PROPERTY(
        QColor bottomColor READ bottomColor WRITE setBottomColor NOTIFY bottomColorChanged FINAL)
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY radiusChanged FINAL)
public:
    explicit RoundedRect(QQuickItem *parent = nullptr);

    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor &color);
    /// Where it is valid, the colour runs from `color` at the top to this one.
    [[nodiscard]] QColor bottomColor() const { return m_bottomColor; }
    void setBottomColor(const QColor &color);
    [[nodiscard]] double radius() const { return m_radius; }
    void setRadius(double radius);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void colorChanged();
    void bottomColorChanged();
    void radiusChanged();

private:
    QColor m_color = Qt::white;
    QColor m_bottomColor;
    double m_radius = 0;
};

} // namespace perchly
