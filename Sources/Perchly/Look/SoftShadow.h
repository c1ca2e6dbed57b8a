#pragma once

#include <QQuickItem>

#include <array>

namespace perchly {

/// The shadow around a rounded rectangle that lies `spread` points inside this item on every side.
/// Nothing is painted under that rectangle, so that it may be translucent. Painted as eight pieces
/// of one small picture, which is made again only when the radius, the spread or the screen's scale
/// changes.
class SoftShadow : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY radiusChanged FINAL)
    Q_PROPERTY(double spread READ spread WRITE setSpread NOTIFY spreadChanged FINAL)
public:
    explicit SoftShadow(QQuickItem *parent = nullptr);

    /// Corner radius of the rectangle, in points.
    [[nodiscard]] double radius() const { return m_radius; }
    void setRadius(double radius);
    /// How far the shadow reaches, in points.
    [[nodiscard]] double spread() const { return m_spread; }
    void setSpread(double spread);

Q_SIGNALS:
    void radiusChanged();
    void spreadChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *old, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    void makeAgain();
    [[nodiscard]] QImage picture(double scale) const;

    double m_radius = 17;
    double m_spread = 24;
    bool m_stale = true;
};

} // namespace perchly
