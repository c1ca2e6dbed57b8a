#include "RoundedRect.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGRenderNode>

namespace perchly {

namespace {

class DirectPainting : public QSGRenderNode {
public:
    explicit DirectPainting(RoundedRect *item)
        : m_item(item) {}

    void render(const RenderState *state) override {
        QQuickWindow *window = m_item->window();
        auto *painter = static_cast<QPainter *>(window->rendererInterface()->getResource(
            window, QSGRendererInterface::PainterResource));
        painter->setClipRegion(*state->clipRegion());
        painter->setTransform(matrix()->toTransform());
        painter->setOpacity(inheritedOpacity());
        painter->setRenderHint(QPainter::Antialiasing);
        m_item->paint(painter);
    }
    RenderingFlags flags() const override { return BoundedRectRendering; }
    QRectF rect() const override { return m_item->boundingRect(); }

private:
    RoundedRect *m_item;
};

} // namespace

RoundedRect::RoundedRect(QQuickItem *parent)
    : QQuickPaintedItem(parent) {
    setAntialiasing(true);
    connect(this, &RoundedRect::changed, this, [this] { update(); });
}

void RoundedRect::paint(QPainter *painter) {
    const double inset = m_borderWidth / 2;
    const QRectF outline = boundingRect().adjusted(inset, inset, -inset, -inset);
    painter->setPen(m_borderWidth > 0 ? QPen(m_borderColor, m_borderWidth) : QPen(Qt::NoPen));
    if (m_bottomColor.isValid()) {
        QLinearGradient colors(outline.topLeft(), outline.bottomLeft());
        colors.setColorAt(0, m_color);
        colors.setColorAt(1, m_bottomColor);
        painter->setBrush(colors);
    } else {
        painter->setBrush(m_color);
    }
    painter->drawRoundedRect(outline, m_radius - inset, m_radius - inset);
}

QSGNode *RoundedRect::updatePaintNode(QSGNode *previous, UpdatePaintNodeData *data) {
    if (window()->rendererInterface()->graphicsApi() != QSGRendererInterface::Software) {
        return QQuickPaintedItem::updatePaintNode(previous, data);
    }
    QSGNode *node = previous != nullptr ? previous : new DirectPainting(this);
    node->markDirty(QSGNode::DirtyMaterial);
    return node;
}

} // namespace perchly
