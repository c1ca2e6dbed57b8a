#include "FakePasteboard.h"

#include <algorithm>

namespace perchly {

Task FakePasteboard::read(const PasteboardRequest &request, Completion completion) {
    asked.push_back(request);
    return m_readings.add({request, std::move(completion), m_count});
}

void FakePasteboard::write(const QString &text) {
    offered = {.text = text};
    ++m_count;
}

void FakePasteboard::writeImage(const QByteArray &encoded) {
    offered = {.png = encoded};
    ++m_count;
}

void FakePasteboard::writeItems(const QList<QUrl> &urls) {
    ++m_count;
    offered = {.text = QUrl::toStringList(urls).join(u' '), .urls = urls};
}

void FakePasteboard::copy(const Offer &offer) {
    offered = offer;
    ++m_count;
    Q_EMIT changed();
}

void FakePasteboard::answer() {
    const auto reading = m_readings.take();
    reading->completion(reading->count == m_count ? fetch(reading->request) : PasteboardContent{});
}

PasteboardContent FakePasteboard::fetch(const PasteboardRequest &request) const {
    PasteboardContent content{.types = offered.markers};
    const auto offer = [&content](QLatin1StringView type, bool isOffered) {
        if (isOffered) {
            content.types.append(type);
        }
    };
    offer(pasteboardtype::png, !offered.png.isEmpty());
    offer(pasteboardtype::tiff, !offered.tiff.isEmpty());
    offer(pasteboardtype::text, !offered.text.isEmpty());
    const bool isUnwanted = std::ranges::any_of(
        request.unwanted, [&content](const QString &type) { return content.types.contains(type); });
    if (isUnwanted) {
        return content;
    }
    const QByteArray &image = offered.png.isEmpty() ? offered.tiff : offered.png;
    if (!image.isEmpty() && image.size() <= request.longestImage) {
        content.image = image;
    } else if (offered.text.toUtf8().size() <= request.longestText) {
        content.text = offered.text;
    }
    return content;
}

} // namespace perchly
