#pragma once

#include "XcbConnection.h"

#include <QDeadlineTimer>
#include <QFont>
#include <QImage>
#include <QList>
#include <QRasterWindow>
#include <QRect>
#include <QTimer>

#include <optional>

namespace perchly {

/// A window over all displays in which the user selects a rectangle. It shows the given picture of
/// the displays, dimmed, with the selected rectangle at full brightness and its size beside it. It
/// grabs pointer and keyboard, and gives up after a minute without input or when the screen saver
/// starts, since the screen cannot lock meanwhile. Everything is in pixels.
class RegionOverlay : public QRasterWindow {
    Q_OBJECT
public:
    /// The displays lie within the picture. Lines and text are scaled by `scale`.
    RegionOverlay(QImage picture, QList<QRect> displays, double scale);

Q_SIGNALS:
    void selected(const QRect &region);
    /// Escape, any button but the first, a minute without input, or the screen saver.
    void cancelled();
    /// Another program holds the keyboard and does not release it in time.
    void failed();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void watchScreenSaver();
    void grabInput();
    void follow(const QPoint &pointer);
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
    QDeadlineTimer m_grabDeadline;
    QTimer m_grab;
    QTimer m_idle;
    XcbConnection m_connection;
    QPoint m_pointer;
    std::optional<QPoint> m_start;
    std::optional<QRect> m_region; ///< none before a drag; a click does not start one
};

} // namespace perchly
