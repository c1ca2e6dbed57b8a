#pragma once

#include <QImage>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// A picture that is read in the background, fitted into the item. Until it is read the item is
/// empty and `found` is false.
class FittedPicture : public QQuickPaintedItem {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(bool found READ found NOTIFY foundChanged FINAL)
public:
    using QQuickPaintedItem::QQuickPaintedItem;

    [[nodiscard]] bool found() const { return !m_picture.isNull(); }

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void foundChanged();

protected:
    /// Starts to read the picture, at most `maxSize` pixels large, replacing a running reading;
    /// passes it to show(). Called when the size changes and after reload().
    virtual void load(const QSize &maxSize) = 0;
    void show(const QImage &picture);
    /// Another picture is wanted.
    void reload();

    void componentComplete() override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    void loadIfResized();

    QImage m_picture;
    QSize m_maxSize; ///< the size it was read for, in pixels
};

} // namespace perchly
