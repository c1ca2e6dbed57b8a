#pragma once

#include <QFont>
#include <QImage>
#include <QList>
#include <QRasterWindow>
#include <QRect>
#include <QTimer>

#include <optional>

namespace perchly {

/// A window over some displays in which the user selects a rectangle. It shows the given picture of
/// the displays, dimmed, with the selected rectangle at full brightness and its size beside it. It
/// gives up after a minute without input, since it may keep the screen from locking. Rectangles and
/// points are in pixels of the picture, which fills the window.
class RegionOverlay : public QRasterWindow {
    Q_OBJECT
public:
    /// The displays lie within the picture. Lines and text are scaled by `scale`. The window covers
    /// as many of Qt's points as the picture has pixels, unless it is resized.
    RegionOverlay(QImage picture, QList<QRect> displays, double scale);

Q_SIGNALS:
    void selected(const QRect &region);
    /// Escape, any button but the first, or a minute without input.
    void cancelled();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void follow(const QPointF &position);
    [[nodiscard]] double pixelsPerPoint() const;
    [[nodiscard]] QRect toPixels(const QRect &area) const;
    [[nodiscard]] QRegion toPoints(const QRegion &area) const;
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
    QList<QRect> m_displays;
    double m_scale;
    QFont m_font;
    QTimer m_idle;
    QPoint m_pointer;
    std::optional<QPoint> m_start;
    std::optional<QRect> m_region; ///< none before a drag; a click does not start one
};

} // namespace perchly
