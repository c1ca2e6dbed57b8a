#include "CopyFilter.h"

#include "CopiedPicture.h"

#include <QCryptographicHash>
#include <QImage>

#include <algorithm>
#include <utility>

namespace perchly {

namespace {

constexpr xcb_timestamp_t maxTakeOverMilliseconds = 2'000;

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

void CopyFilter::handleOwner(const SelectionClient::OwnerChange &change) {
    const bool isSet = change.subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER;
    if (!isSet || change.owner == XCB_WINDOW_NONE) {
        m_released = change.timestamp;
        if (!isSet) {
            m_owner = XCB_WINDOW_NONE; // the server may reuse its window IDs
        }
        return;
    }
    m_wasJustReleased = m_released && change.timestamp - *m_released < maxTakeOverMilliseconds &&
                        !m_client.isSameClient(change.owner, m_owner);
    m_released.reset();
    m_owner = change.owner;
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
    const bool isManager =
        m_client.isSameClient(m_owner, m_client.ownerOf(m_client.atom("CLIPBOARD_MANAGER")));
    const bool isSame = m_present == m_previous;
    return m_previous && int(m_wasJustReleased) + int(isManager) + int(isSame) >= 2;
}

} // namespace perchly
