#include "SoftShadow.h"

#include <QImage>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTexture>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace perchly {

namespace {

constexpr double strength = 0.42; ///< opacity right beside the rectangle
constexpr int pieces = 8;

/// The eight pieces' parent owns the texture that they share.
class ShadowNode : public QSGNode {
public:
    std::unique_ptr<QSGTexture> texture;
};

/// Distance from a rounded rectangle's outline; negative inside.
double distance(double x, double y, double halfSide, double radius) {
    const double dx = std::abs(x) - halfSide + radius;
    const double dy = std::abs(y) - halfSide + radius;
    return std::hypot(std::max(dx, 0.0), std::max(dy, 0.0)) + std::min(std::max(dx, dy), 0.0) -
           radius;
}

} // namespace

SoftShadow::SoftShadow(QQuickItem *parent)
    : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

void SoftShadow::setRadius(double radius) {
    if (m_radius == radius) {
        return;
    }
    m_radius = radius;
    makeAgain();
    Q_EMIT radiusChanged();
}

void SoftShadow::setSpread(double spread) {
    if (m_spread == spread) {
        return;
    }
    m_spread = spread;
    makeAgain();
    Q_EMIT spreadChanged();
}

void SoftShadow::makeAgain() {
    m_stale = true;
    update();
}

QImage SoftShadow::picture(double scale) const {
    const int corner = int(std::ceil((m_spread + m_radius) * scale));
    const int side = 2 * corner + 1;
    const double halfSide = side / 2.0 - m_spread * scale;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < side; ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < side; ++x) {
            const double away =
                distance(x + 0.5 - side / 2.0, y + 0.5 - side / 2.0, halfSide, m_radius * scale);
            const double outside = std::clamp(away + 0.5, 0.0, 1.0);
            const double near = std::clamp(1 - away / (m_spread * scale), 0.0, 1.0);
            // A cube falls off softly and reaches nothing, with no visible rim, at the spread.
            const int alpha = int(std::lround(255 * strength * outside * near * near * near));
            line[x] = qRgba(0, 0, 0, alpha);
        }
    }
    return image;
}

QSGNode *SoftShadow::updatePaintNode(QSGNode *old, UpdatePaintNodeData *) {
    const double corner = m_spread + m_radius;
    if (m_spread <= 0 || width() <= 2 * corner - 2 * m_radius || height() <= 2 * m_spread) {
        delete old;
        m_stale = true;
        return nullptr;
    }
    auto *node = static_cast<ShadowNode *>(old);
    if (node == nullptr) {
        node = new ShadowNode;
        for (int piece = 0; piece < pieces; ++piece) {
            QSGImageNode *image = window()->createImageNode();
            image->setFiltering(QSGTexture::Linear);
            image->setFlag(QSGNode::OwnedByParent);
            node->appendChildNode(image);
        }
        m_stale = true;
    }
    std::unique_ptr<QSGTexture> outdated;
    if (m_stale) {
        outdated = std::move(node->texture);
        node->texture.reset(
            window()->createTextureFromImage(picture(window()->effectiveDevicePixelRatio())));
        m_stale = false;
    }

    // Where the rectangle is smaller than two corners, each corner gives way to the middle.
    const double cornerX = std::min(corner, width() / 2);
    const double cornerY = std::min(corner, height() / 2);
    const double side = node->texture->textureSize().width();
    const double scale = (side - 1) / 2 / corner;
    const std::array targetX{0.0, cornerX, width() - cornerX, width()};
    const std::array targetY{0.0, cornerY, height() - cornerY, height()};
    const std::array sourceX{0.0, cornerX * scale, side - cornerX * scale, side};
    const std::array sourceY{0.0, cornerY * scale, side - cornerY * scale, side};
    auto *image = static_cast<QSGImageNode *>(node->firstChild());
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            if (row == 1 && column == 1) {
                continue;
            }
            image->setTexture(node->texture.get());
            image->setRect(QRectF(QPointF(targetX[column], targetY[row]),
                                  QPointF(targetX[column + 1], targetY[row + 1])));
            image->setSourceRect(QRectF(QPointF(sourceX[column], sourceY[row]),
                                        QPointF(sourceX[column + 1], sourceY[row + 1])));
            image = static_cast<QSGImageNode *>(image->nextSibling());
        }
    }
    return node;
}

void SoftShadow::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size()) {
        update();
    }
}

void SoftShadow::itemChange(ItemChange change, const ItemChangeData &data) {
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange) {
        makeAgain();
    }
    QQuickItem::itemChange(change, data);
}

} // namespace perchly
