#include "CopyFilter.h"

#include "CopiedPicture.h"

#include <QCryptographicHash>
#include <QImage>

#include <algorithm>
#include <utility>

namespace perchly {

namespace {

constexpr std::chrono::milliseconds maxTakeOver{2000};

QByteArray digestOf(const PasteboardContent &content) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(content.text.toUtf8());
    QImage image;
    if (const auto format = copiedPictureFormat(content.image); !format.isEmpty()) {
        image.loadFromData(content.image, format.constData());
        image.convertTo(QImage::Format_RGBA8888);
    }
    if (image.isNull()) {
        hash.addData(content.image);
    } else {
        hash.addData(QByteArray::number(image.width()));
        hash.addData(QByteArrayView(image.constBits(), image.sizeInBytes()));
    }
    return hash.result();
}

} // namespace

void CopyFilter::handleChange(const CopyChange &change) {
    const quint32 before = std::exchange(m_copier, change.client);
    if (change.kind == CopyChange::Kind::Released) {
        m_released = change.time;
        return;
    }
    const bool isSameProgram = change.client != 0 && change.client == before;
    m_wasJustReleased = m_released && change.time - *m_released < maxTakeOver && !isSameProgram;
    m_released.reset();
    m_previous = std::exchange(m_present, std::nullopt);
}

void CopyFilter::apply(const PasteboardRequest &request, PasteboardContent &content) {
    if (content.types.isEmpty()) {
        return;
    }
    m_present = digestOf(content);
    const bool isMarked = std::ranges::any_of(
        request.unwanted, [&content](const QString &type) { return content.types.contains(type); });
    if (isMarked) {
        m_marked.insert(*m_present);
    }
    if (m_marked.contains(*m_present) || isTakeOver() ||
        content.types.contains(pasteboardtype::own)) {
        content.image.clear();
        content.text.clear();
    }
}

bool CopyFilter::isTakeOver() const {
    const bool isSame = m_present == m_previous;
    return m_previous && int(m_wasJustReleased) + int(m_client.isFromManager()) + int(isSame) >= 2;
}

} // namespace perchly
