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
    Q_PROPERTY(
        QColor borderColor READ borderColor WRITE setBorderColor NOTIFY borderColorChanged FINAL)
    Q_PROPERTY(
        double borderWidth READ borderWidth WRITE setBorderWidth NOTIFY borderWidthChanged FINAL)
public:
    explicit RoundedRect(QQuickItem *parent = nullptr);

    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor &color);
    /// Where it is valid, the colour runs from `color` at the top to this one.
    [[nodiscard]] QColor bottomColor() const { return m_bottomColor; }
    void setBottomColor(const QColor &color);
    [[nodiscard]] double radius() const { return m_radius; }
    void setRadius(double radius);
    /// The border lies inside the rectangle; there is none while its width is 0.
    [[nodiscard]] QColor borderColor() const { return m_borderColor; }
    void setBorderColor(const QColor &color);
    [[nodiscard]] double borderWidth() const { return m_borderWidth; }
    void setBorderWidth(double width);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void colorChanged();
    void bottomColorChanged();
    void radiusChanged();
    void borderColorChanged();
    void borderWidthChanged();

private:
    QColor m_color = Qt::white;
    QColor m_bottomColor;
    double m_radius = 0;
    QColor m_borderColor = Qt::transparent;
    double m_borderWidth = 0;
};

} // namespace perchly
