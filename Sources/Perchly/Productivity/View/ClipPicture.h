#pragma once

#include "ClipboardHistory.h"

#include <QByteArray>
#include <QImage>
#include <QPointer>
#include <QQuickPaintedItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// The picture of an entry of the clipboard history, fitted into the item and decoded in the
/// background. Only the scaled picture is kept. Nothing is shown, and `found` is false, until then
/// and where the entry holds neither a PNG nor a TIFF that can be decoded.
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

    /// The picture, no larger than the size; null if it cannot be decoded. Blocks; any thread, one
    /// at a time.
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
    QString m_clip; ///< the identifier
    QImage m_picture;
    QSize m_maxSize;  ///< in pixels, that the picture was decoded for
    int m_number = 0; ///< of the last decoding
};

} // namespace perchly
