#pragma once

#include "ClipboardHistory.h"

#include <QByteArray>
#include <QImage>
#include <QPointer>
#include <QQuickPaintedItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// The picture of a clip, fitted into the item. It is decoded in the background, and only the
/// scaled picture is kept. Before that, or without a PNG or TIFF that can be decoded, the item is
/// empty and `found` is false.
class ClipPicture : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        perchly::ClipboardHistory *history MEMBER m_history NOTIFY historyChanged REQUIRED FINAL)
    Q_PROPERTY(QString clip MEMBER m_clip NOTIFY clipChanged REQUIRED FINAL)
    Q_PROPERTY(bool found READ found NOTIFY foundChanged FINAL)
public:
    explicit ClipPicture(QQuickItem *parent = nullptr);

    [[nodiscard]] bool found() const { return !m_picture.isNull(); }

    void paint(QPainter *painter) override;

    /// The picture, at most that large; null if it cannot be decoded. Blocks; any thread, but calls
    /// run one at a time.
    [[nodiscard]] static QImage decoded(const QByteArray &encoded, const QSize &maxSize);

Q_SIGNALS:
    void historyChanged();
    void clipChanged();
    void foundChanged();

protected:
    void componentComplete() override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    [[nodiscard]] QByteArray encoded() const;
    void decode();
    void show(const QImage &picture);

    QPointer<ClipboardHistory> m_history;
    QString m_clip; ///< its identifier
    QImage m_picture;
    QSize m_maxSize;  ///< the size it was decoded for, in pixels
    int m_number = 0; ///< number of the last decoding
};

} // namespace perchly
