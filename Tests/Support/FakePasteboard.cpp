#include "FakePasteboard.h"

#include <algorithm>

namespace perchly {

struct FakePasteboard::Reading {
    PasteboardRequest request;
    Completion completion;
    qint64 count;
};

class FakePasteboard::Handle : public ScheduledTask {
public:
    Handle(FakePasteboard &pasteboard, std::shared_ptr<Reading> reading)
        : m_pasteboard(pasteboard)
        , m_reading(std::move(reading)) {}
    ~Handle() override { std::erase(m_pasteboard.m_readings, m_reading); }

private:
    FakePasteboard &m_pasteboard;
    std::shared_ptr<Reading> m_reading;
};

Task FakePasteboard::read(const PasteboardRequest &request, Completion completion) {
    asked.push_back(request);
    m_readings.push_back(
        std::make_shared<Reading>(Reading{request, std::move(completion), m_count}));
    return std::make_unique<Handle>(*this, m_readings.back());
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
    Q_ASSERT(!m_readings.empty());
    const auto reading = m_readings.front(); // outlives the handle that the completion may destroy
    m_readings.erase(m_readings.begin());
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
