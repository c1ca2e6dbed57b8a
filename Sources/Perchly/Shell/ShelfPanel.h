#pragma once

#include "Geometry.h"
#include "ShelfEdge.h"

#include <QQuickView>
#include <QRegion>

#include <optional>

namespace perchly {

class PanelHost;

/// The shelf's window, which contains the shelf's view. It is placed by its frame; a margin around
/// the frame, except at the display's edge, holds the shadow. Main thread only.
class ShelfPanel : public QQuickView {
    Q_OBJECT
public:
    /// Both must outlive the panel.
    ShelfPanel(QQmlEngine &engine, PanelHost &host);

    /// Loads a local view with its initial properties. An empty source leaves the panel empty.
    void load(const QUrl &source, const QVariantMap &properties);

    /// Moves the panel to the frame. `compactFrame` is the collapsed shelf's frame within it.
    /// Without an edge the shelf floats, with round corners and a shadow on all sides.
    void setFrame(const ScreenRect &frame, const ScreenRect &compactFrame,
                  std::optional<ShelfEdge> edge);

    /// Moves the floating panel to the frame while the pointer holds it.
    void carry(const ScreenRect &frame);

    /// Whether frames may overlap the desktop's panels.
    void setOverPanels(bool over);

    /// Shows where the panel would be docked; an empty frame hides that.
    void markPlace(const ScreenRect &frame);

    /// The position of the pointer event being handled, or nullopt. The pointer may have moved
    /// since.
    [[nodiscard]] std::optional<ScreenPoint> eventPosition() const { return m_eventPosition; }

    /// The last frame set.
    [[nodiscard]] const ScreenRect &frame() const { return m_frame; }

    /// Whether the panel receives the pointer at that point, so that leaving it emits `crossed`.
    [[nodiscard]] bool takesPointer(ScreenPoint point) const;

Q_SIGNALS:
    /// The pointer entered or left the shape, by moving or jumping.
    void crossed();

    /// Something that the view accepts is being dragged over it.
    void draggedOver();

protected:
    bool event(QEvent *event) override;

private Q_SLOTS:
    /// Limits pointer input to the visible shelf.
    void applyShape();
    /// Blurs the screen behind the translucent shelf.
    void applyBlur();

private:
    void remember(const ScreenRect &frame, const ScreenRect &compactFrame,
                  std::optional<ShelfEdge> edge);
    void layOut();
    [[nodiscard]] QRegion region(const QRectF &shape, double radius) const;
    [[nodiscard]] QRectF inWindow(const ScreenRect &rectangle) const;

    PanelHost &m_host;
    ScreenRect m_frame;
    ScreenRect m_compactFrame;
    std::optional<ShelfEdge> m_edge;
    QMarginsF m_margins;
    QRegion m_shape; ///< in pixels
    QRegion m_blur;  ///< in pixels
    std::optional<ScreenPoint> m_eventPosition;
};

} // namespace perchly
