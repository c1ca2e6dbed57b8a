#include "ShelfPanel.h"

#include "PanelHost.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QQuickItem>

#include <algorithm>
#include <cmath>

namespace perchly {

namespace {

constexpr double shadowMargin = 26;

/// No shadow on the sides of the frame that touch the display's edge.
QMarginsF shadowMargins(std::optional<ShelfEdge> edge) {
    const double left = edge == ShelfEdge::Left ? 0 : shadowMargin;
    const double top = edge == ShelfEdge::Top ? 0 : shadowMargin;
    const double right = edge == ShelfEdge::Right ? 0 : shadowMargin;
    return {left, top, right, shadowMargin};
}

/// A rectangle with round corners except at the display's edge, in pixels. Built row by row, as
/// QRegion cuts off a polygon's corners.
QRegion roundedRegion(const QRectF &rectangle, double radius, std::optional<ShelfEdge> edge) {
    QList<QRect> bands;
    for (int row = qRound(rectangle.top()); row < qRound(rectangle.bottom()); ++row) {
        const double intoTop = edge == ShelfEdge::Top ? 0 : radius - (row + 0.5 - rectangle.top());
        const double intoBottom = radius - (rectangle.bottom() - row - 0.5);
        const double into = std::clamp(std::max(intoTop, intoBottom), 0.0, radius);
        const double inset = radius - std::sqrt(radius * radius - into * into);
        const int left = qRound(rectangle.left() + (edge == ShelfEdge::Left ? 0 : inset));
        const int right = qRound(rectangle.right() - (edge == ShelfEdge::Right ? 0 : inset));
        if (!bands.isEmpty() && bands.last().left() == left && bands.last().right() == right - 1) {
            bands.last().setBottom(row);
        } else if (left < right) {
            bands.append(QRect(left, row, right - left, 1));
        }
    }
    QRegion region;
    region.setRects(bands.constData(), int(bands.size()));
    return region;
}

} // namespace

ShelfPanel::ShelfPanel(QQmlEngine &engine, PanelHost &host)
    : QQuickView(&engine, nullptr)
    , m_host(host) {
    setResizeMode(SizeRootObjectToView);
    setColor(Qt::transparent);
    setTitle(QStringLiteral("Perchly"));
    m_host.attach(this);
    // Qt would end a drag of the shelf when another of our windows closes. The X server sends the
    // release anyway.
    disconnect(qGuiApp, &QGuiApplication::applicationStateChanged, this, nullptr);
    connect(&m_host, &PanelHost::compositedChanged, this,
            [this] { setFrame(m_frame, m_compactFrame, m_edge); });
}

void ShelfPanel::load(const QUrl &source, const QVariantMap &properties) {
    if (source.isEmpty()) {
        return;
    }
    setInitialProperties(properties);
    setSource(source);
    if (QQuickItem *root = rootObject()) {
        connect(root, SIGNAL(shapeRectChanged()), this, SLOT(applyShape()));
        connect(root, SIGNAL(shapeRadiusChanged()), this, SLOT(applyShape()));
        connect(root, SIGNAL(blurRectChanged()), this, SLOT(applyBlur()));
        applyBlur();
    }
}

QRectF ShelfPanel::inWindow(const ScreenRect &rectangle) const {
    return {m_margins.left() + rectangle.minX() - m_frame.minX(),
            m_margins.top() + m_frame.maxY() - rectangle.maxY(), rectangle.width, rectangle.height};
}

void ShelfPanel::setFrame(const ScreenRect &frame, const ScreenRect &compactFrame,
                          std::optional<ShelfEdge> edge) {
    remember(frame, compactFrame, edge);
    m_host.place(frame, m_margins);
    layOut();
}

void ShelfPanel::carry(const ScreenRect &frame) {
    remember(frame, frame, std::nullopt);
    m_host.carry(frame, m_margins);
    layOut();
}

void ShelfPanel::setOverPanels(bool over) {
    m_host.setOverPanels(over);
}

void ShelfPanel::remember(const ScreenRect &frame, const ScreenRect &compactFrame,
                          std::optional<ShelfEdge> edge) {
    m_frame = frame;
    m_compactFrame = compactFrame;
    m_edge = edge;
    m_margins = m_host.isComposited() ? shadowMargins(edge) : QMarginsF();
}

void ShelfPanel::layOut() {
    if (QQuickItem *root = rootObject()) {
        // The window's own resize event comes too late for the shape.
        root->setSize({m_frame.width + m_margins.left() + m_margins.right(),
                       m_frame.height + m_margins.top() + m_margins.bottom()});
        root->setProperty("composited", m_host.isComposited());
        root->setProperty("shadowMargin", m_host.isComposited() ? shadowMargin : 0);
        root->setProperty("compactRect", inWindow(m_compactFrame));
    }
    applyShape();
}

void ShelfPanel::markPlace(const ScreenRect &frame) {
    m_host.markPlace(frame);
}

bool ShelfPanel::takesPointer(ScreenPoint point) const {
    return m_shape.contains(
        (inWindow({point.x, point.y, 1, 1}).topLeft() * devicePixelRatio()).toPoint());
}

bool ShelfPanel::event(QEvent *event) {
    const bool pointer = event->type() == QEvent::MouseButtonPress ||
                         event->type() == QEvent::MouseMove ||
                         event->type() == QEvent::MouseButtonRelease;
    if (pointer) {
        m_eventPosition = m_host.toScreen(static_cast<QMouseEvent *>(event)->globalPosition());
    }
    const bool crosses = event->type() == QEvent::Enter || event->type() == QEvent::Leave;
    const bool handled = QQuickView::event(event);
    m_eventPosition.reset();
    if (crosses) {
        Q_EMIT crossed();
    }
    const bool drags = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
    if (drags && event->isAccepted()) {
        Q_EMIT draggedOver();
    }
    return handled;
}

void ShelfPanel::applyShape() {
    const QQuickItem *root = rootObject();
    const QRectF shape = root ? root->property("shapeRect").toRectF() : inWindow(m_frame);
    const double radius = root ? root->property("shapeRadius").toDouble() : 0;
    m_shape = region(shape, radius);
    m_host.setShape(m_shape);
}

void ShelfPanel::applyBlur() {
    const QRectF shape = rootObject()->property("blurRect").toRectF();
    const QRegion blur = region(shape, rootObject()->property("shapeRadius").toDouble());
    if (m_blur != blur) {
        m_blur = blur;
        m_host.setBlur(blur);
    }
}

QRegion ShelfPanel::region(const QRectF &shape, double radius) const {
    const double ratio = devicePixelRatio();
    return roundedRegion(QTransform::fromScale(ratio, ratio).mapRect(shape), radius * ratio,
                         m_edge);
}

} // namespace perchly
