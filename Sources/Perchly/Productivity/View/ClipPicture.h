#pragma once

#include "ClipboardHistory.h"
#include "FittedPicture.h"

#include <QByteArray>
#include <QPointer>
#include <QString>

namespace perchly {

/// The picture of a clip. Without a PNG or TIFF that can be decoded, the item stays empty.
class ClipPicture : public perchly::FittedPicture {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        perchly::ClipboardHistory *history MEMBER m_history NOTIFY historyChanged REQUIRED FINAL)
    Q_PROPERTY(QString clip MEMBER m_clip NOTIFY clipChanged REQUIRED FINAL)
public:
    explicit ClipPicture(QQuickItem *parent = nullptr);

    /// The picture, at most that large; null if it cannot be decoded. Blocks; any thread, but calls
    /// run one at a time.
    [[nodiscard]] static QImage decoded(const QByteArray &encoded, const QSize &maxSize);

Q_SIGNALS:
    void historyChanged();
    void clipChanged();

protected:
    void load(const QSize &maxSize) override;

private:
    [[nodiscard]] QByteArray encoded() const;

    QPointer<ClipboardHistory> m_history;
    QString m_clip;   ///< its identifier
    int m_number = 0; ///< number of the last decoding
};

} // namespace perchly
