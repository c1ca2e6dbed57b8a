#pragma once

#include "DragGhost.h"
#include "LayerSurface.h"
#include "PanelHost.h"
#include "PressCatcher.h"
#include "WaylandConnection.h"

#include <QElapsedTimer>
#include <QQuickItemGrabResult>
#include <QRegion>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

namespace perchly {

class WaylandDisplays;

/// The panel as a layer surface above full-screen windows. It places itself from the top left
/// corner of a display, and so knows where it is, which Wayland does not tell.
class WaylandPanelHost : public PanelHost {
    Q_OBJECT
public:
    /// The displays must outlive it.
    WaylandPanelHost(std::shared_ptr<WaylandConnection> connection, WaylandDisplays &displays);

    void attach(QWindow *panel) override;
    void place(const ScreenRect &frame, const QMarginsF &margins) override;
    void carry(const ScreenRect &frame, const QMarginsF &margins) override;
    void setOverPanels(bool over) override;
    void orderFront() override;
    void setShape(const QRegion &shape) override;
    void setBlur(const QRegion &) override {}
    void takeKeyboard() override;
    void giveKeyboardBack() override;
    void setMenuOpen(bool open) override;
    void setCapturing(bool capturing) override;
    [[nodiscard]] bool hasKeyboard() const override;
    void activate(QWindow *window) override;
    [[nodiscard]] bool isComposited() const override { return true; }
    [[nodiscard]] ScreenPoint toScreen(QPointF point) const override;
    void markPlace(const ScreenRect &frame) override;

    /// The pointer's position while it is on the panel or was pressed there.
    [[nodiscard]] std::optional<ScreenPoint> pointer() const { return m_pointer; }
    /// The attached window.
    [[nodiscard]] QWindow *panel() const { return m_panel; }
    /// Whether something is being dragged over the panel.
    [[nodiscard]] bool isDraggedOver() const { return m_isDraggedOver; }
    /// Whether a button that was pressed on the panel is held. Qt would not notice the release of a
    /// button that was pressed on a surface that has gone.
    [[nodiscard]] bool isPressed() const { return m_isPressed; }

Q_SIGNALS:
    void pointerMoved();
    /// While the panel has the keyboard and a menu is open. Also when it loses the keyboard.
    void pressedBesideMenu();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void put();
    void drop();
    void takePicture();
    void putAgain();
    void enter(QPointF inPanel);
    void setPointer(std::optional<QPointF> inPanel);
    void catchPresses();
    void catchPresses(PressCatcher::Place place, QScreen &screen, QSize size, const QRegion &free);
    void handlePressElsewhere();
    [[nodiscard]] bool lacksKeyboard() const;
    void loseKeyboard();
    void refuseKeyboard();
    [[nodiscard]] static QScreen *screenAt(const QRect &geometry);

    const std::shared_ptr<WaylandConnection> m_connection;
    WaylandDisplays &m_displays;
    QPointer<QWindow> m_panel;
    std::unique_ptr<LayerSurface> m_role;
    bool m_isShown = false;
    QRect m_geometry; ///< in Qt's points
    LayerSurface::Origin m_origin = LayerSurface::Origin::FreeArea;
    std::unique_ptr<DragGhost> m_ghost; ///< while the pointer holds the panel
    QSharedPointer<QQuickItemGrabResult> m_picture;
    QElapsedTimer m_placed;
    QRect
        m_before; ///< in Qt's points, before the panel was resized without the pointer; else empty
    std::optional<ScreenPoint> m_pointer;
    bool m_isDraggedOver = false;
    bool m_isPressed = false;
    bool m_isMenuOpen = false;
    bool m_menuTookKeyboard = false;
    bool m_holdsKeyboard = false;
    bool m_heldKeyboard = false; ///< since its surface was made
    QTimer m_askAgain;
    QTimer m_grant;
    QRegion m_shape;                                       ///< in the panel's points
    std::vector<std::unique_ptr<PressCatcher>> m_catchers; ///< while it holds the keyboard
};

} // namespace perchly
