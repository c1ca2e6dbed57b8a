#include "PdfPages.h"

#include <QPainter>
#include <QPdfDocument>

#include <algorithm>
#include <cmath>

namespace perchly {

namespace {

constexpr int mostPages = 1000;
constexpr double ordinaryPage = 595;

/// Sizes that no page can have become that of an ordinary one.
double usable(double length) {
    return std::isfinite(length) && length >= 1 ? std::min(length, 20'000.0) : ordinaryPage;
}

} // namespace

PdfPages::PdfPages() = default;
PdfPages::~PdfPages() = default;

void PdfPages::load(int number, const QString &path) {
    if (number != m_wanted) {
        return;
    }
    m_document = std::make_unique<QPdfDocument>();
    QList<QSizeF> sizes;
    if (m_document->load(path) == QPdfDocument::Error::None) {
        const int count = std::min(m_document->pageCount(), mostPages);
        for (int page = 0; page < count; ++page) {
            const QSizeF size = m_document->pagePointSize(page);
            sizes.append({usable(size.width()), usable(size.height())});
        }
    }
    Q_EMIT loaded(number, sizes);
}

void PdfPages::render(int number, int page, const QSize &pixels) {
    if (!m_document || number != m_wanted) {
        return;
    }
    QImage sheet(pixels, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    const QImage drawn = m_document->render(page, pixels);
    if (!drawn.isNull() && !sheet.isNull()) {
        QPainter painter(&sheet);
        painter.drawImage(0, 0, drawn);
    }
    Q_EMIT rendered(number, page, pixels, sheet);
}

void PdfPages::forget() {
    m_document.reset();
}

} // namespace perchly
