#include "FilePicture.h"

#include "FilePictures.h"

#include <algorithm>

namespace perchly {

FilePicture::FilePicture(QQuickItem *parent)
    : FittedPicture(parent) {
    connect(this, &FilePicture::urlChanged, this, [this] {
        m_reading.reset();
        show({});
        reload();
    });
}

void FilePicture::load(const QSize &maxSize) {
    const int side = std::max(maxSize.width(), maxSize.height());
    if (!m_tools || !m_url.isLocalFile() || side == 0) {
        return;
    }
    m_reading =
        m_tools->filePictures().read(m_url.toLocalFile(), side, [this](const QImage &picture) {
            const Task task = std::move(m_reading);
            show(picture);
        });
}

} // namespace perchly
