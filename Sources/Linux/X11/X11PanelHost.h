#pragma once

#include "DockShade.h"
#include "KeyboardFocus.h"
#include "OutsidePress.h"
#include "PanelHost.h"
#include "SelectionWatch.h"
#include "StackingGuard.h"
#include "XcbConnection.h"

#include <QPointer>
#include <QRegion>
#include <QTimer>
#include <QWindow>

#include <memory>
#include <optional>

namespace perchly {

/// The panel as an override-redirect window: above docks and full-screen windows, on every desktop,
/// and never activated by a window manager. An input shape lets clicks through its margin; without
/// a compositor, the same shape cuts the margin off.
class X11PanelHost : public PanelHost {
    Q_OBJECT
public:
    X11PanelHost();

    void attach(QWindow *panel) override;
    void place(const ScreenRect &frame, const QMarginsF &margins) override;
    void orderFront() override;
    void setShape(const QRegion &shape) override;
    void setBlur(const QRegion &region) override;
    void takeKeyboard() override;
    void giveKeyboardBack() override;
    void setMenuOpen(bool open) override;
    [[nodiscard]] bool hasKeyboard() const override;
    void activate(QWindow *window) override;
    [[nodiscard]] bool isComposited() const override;
    [[nodiscard]] ScreenPoint toScreen(QPointF point) const override;
    void markPlace(const ScreenRect &frame) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void prepareNativeWindow();
    void applyShape();
    void checkKeyboard();
    [[nodiscard]] quint32 panelId() const;

    mutable XcbConnection m_connection;
    SelectionWatch m_compositor{m_connection, QByteArrayLiteral("_NET_WM_CM_S0")};
    mutable KeyboardFocus m_focus{m_connection};
    OutsidePress m_outsidePress{m_connection};
    StackingGuard m_stacking{m_connection};
    QPointer<QWindow> m_panel;
    bool m_holdsKeyboard = false; ///< until it is given back or a button is pressed elsewhere
    QTimer m_grant;               ///< from taking the keyboard until it should be there
    std::optional<QRegion> m_shape;
    std::unique_ptr<DockShade> m_shade;
};

} // namespace perchly
