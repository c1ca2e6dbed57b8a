#pragma once

#include "FittedPicture.h"
#include "Productivity.h"

#include <QPointer>
#include <QUrl>

namespace perchly {

/// A small picture of a local file: its thumbnail, or the icon of its type.
class FilePicture : public perchly::FittedPicture {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(perchly::Productivity *tools MEMBER m_tools NOTIFY toolsChanged REQUIRED FINAL)
    Q_PROPERTY(QUrl url MEMBER m_url NOTIFY urlChanged REQUIRED FINAL)
public:
    explicit FilePicture(QQuickItem *parent = nullptr);

Q_SIGNALS:
    void toolsChanged();
    void urlChanged();

protected:
    void load(const QSize &maxSize) override;

private:
    QPointer<Productivity> m_tools;
    QUrl m_url;
    Task m_reading;
};

} // namespace perchly
