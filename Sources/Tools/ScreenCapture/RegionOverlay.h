#pragma once

#include <QFont>
#include <QImage>
#include <QList>
#include <QRasterWindow>
#include <QRect>

#include <optional>

namespace perchly {

/// One window over all displays. It shows the given picture of them, dimmed, with the chosen
/// rectangle in full light and its size beside it. Everything is in pixels.
class RegionOverlay : public QRasterWindow {
    Q_OBJECT
public:
    /// The displays lie within the picture. Lines and type are `scale` times as large as on an
    /// ordinary display.
    RegionOverlay(QImage picture, QList<QRect> displays, double scale);

    /// Before the person begins, a hint stands on the display where the pointer is.
    void setPointer(const QPoint &pixel);
    /// The rectangle chosen so far, or none.
    void setRegion(const std::optional<QRect> &region);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QRect displayAt(const QPoint &pixel) const;
    [[nodiscard]] QSize plateSize(const QString &text) const;
    [[nodiscard]] QRect hintPlate() const;
    [[nodiscard]] QRect sizePlate() const;
    [[nodiscard]] QString sizeText() const;
    [[nodiscard]] QRegion drawnArea() const;
    [[nodiscard]] int scaled(double length) const { return qRound(length * m_scale); }
    void drawPlate(QPainter &painter, const QRect &plate, const QString &text) const;
    void drawRegion(QPainter &painter) const;

    QImage m_picture;
    QImage m_dimmed;
    QList<QRect> m_displays;
    double m_scale;
    QFont m_font;
    QPoint m_pointer;
    std::optional<QRect> m_region;
};

} // namespace perchly
