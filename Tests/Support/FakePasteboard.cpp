#include "FakePasteboard.h"

namespace perchly {

Task FakePasteboard::read(const PasteboardRequest &request, Completion completion) {
    asked.push_back(request);
    return m_readings.add({std::move(completion), m_count});
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
    const Offer offer = reading->count == m_count ? offered : Offer();
    reading->completion({.image = offer.png, .text = offer.png.isEmpty() ? offer.text : QString()});
}

} // namespace perchly
