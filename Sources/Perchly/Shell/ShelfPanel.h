#pragma once

#include "Geometry.h"
#include "ShelfEdge.h"

#include <QQuickView>
#include <QRegion>

#include <optional>

namespace perchly {

class PanelHost;

/// The floating window that is the shelf. It shows the shelf's view and is placed by its frame; a
/// margin around the frame, on the sides that do not touch the display's edge, holds its shadow.
/// Main thread only.
class ShelfPanel : public QQuickView {
    Q_OBJECT
public:
    /// Both must outlive the panel.
    ShelfPanel(QQmlEngine &engine, PanelHost &host);

    /// Loads the view, which must be a local one, with its initial properties. An empty source
    /// leaves the panel without content.
    void load(const QUrl &source, const QVariantMap &properties);

    /// Moves the panel to the frame. `compactFrame` is where the collapsed shelf is, within it.
    void setFrame(const ScreenRect &frame, const ScreenRect &compactFrame, ShelfEdge edge);

    /// Where the pointer event happened that is being handled now; nothing outside of one. The
    /// pointer itself may have gone on since.
    [[nodiscard]] std::optional<ScreenPoint> eventPosition() const { return m_eventPosition; }

    /// The frame that the panel was last given.
    [[nodiscard]] const ScreenRect &frame() const { return m_frame; }

    /// Whether the pointer would be the panel's at that point, so that `crossed` tells when it
    /// goes.
    [[nodiscard]] bool takesPointer(ScreenPoint point) const;

Q_SIGNALS:
    /// The pointer came to or left what takes it, by moving or by a jump.
    void crossed();

protected:
    bool event(QEvent *event) override;

private Q_SLOTS:
    /// Takes the pointer where the view says that the shelf is, and nowhere else.
    void applyShape();

private:
    [[nodiscard]] QRectF inWindow(const ScreenRect &rectangle) const;

    PanelHost &m_host;
    ScreenRect m_frame;
    ScreenRect m_compactFrame;
    ShelfEdge m_edge = ShelfEdge::Top;
    QMarginsF m_margins;
    QRegion m_shape; ///< in pixels
    std::optional<ScreenPoint> m_eventPosition;
};

} // namespace perchly
