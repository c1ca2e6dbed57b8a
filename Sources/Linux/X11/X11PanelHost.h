#pragma once

#include "CompositorWatch.h"
#include "KeyboardFocus.h"
#include "OutsidePress.h"
#include "PanelHost.h"
#include "StackingGuard.h"
#include "XcbConnection.h"

#include <QPointer>
#include <QRegion>
#include <QWindow>

#include <optional>

namespace perchly {

/// The panel as an override-redirect window: it is above docks and full-screen windows, on every
/// desktop, and no window manager activates it. Clicks fall through its margin by an input shape;
/// without a compositor the same shape also cuts off the margin.
class X11PanelHost : public PanelHost {
    Q_OBJECT
public:
    explicit X11PanelHost(QObject *parent = nullptr);

    void attach(QWindow *panel) override;
    void place(const ScreenRect &frame, const QMarginsF &margins) override;
    void orderFront() override;
    void setShape(const QRegion &shape) override;
    void takeKeyboard() override;
    void giveKeyboardBack() override;
    [[nodiscard]] bool hasKeyboard() const override;
    void activate(QWindow *window) override;
    [[nodiscard]] bool isComposited() const override;
    [[nodiscard]] ScreenPoint toScreen(QPointF point) const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void prepareNativeWindow();
    void applyShape();
    void raise();
    [[nodiscard]] quint32 panelId() const;

    mutable XcbConnection m_connection;
    CompositorWatch m_compositor;
    mutable KeyboardFocus m_focus;
    OutsidePress m_outsidePress;
    StackingGuard m_stacking;
    QPointer<QWindow> m_panel;
    bool m_holdsKeyboard = false; ///< taken and not given back; a press elsewhere ends it too
    std::optional<QRegion> m_shape;
};

} // namespace perchly
