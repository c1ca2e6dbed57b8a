#include "PdfView.h"

#include "PreviewLook.h"

#include <QPdfDocument>
#include <QScrollBar>

namespace perchly {

PdfView::PdfView()
    : QPdfView(nullptr) {
    constexpr int gap = 14;
    setPageMode(PageMode::MultiPage);
    setZoomMode(ZoomMode::FitToWidth);
    setPageSpacing(gap);
    setDocumentMargins({gap, gap, gap, gap});
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setSingleStep(40);
    QPalette colors = palette();
    colors.setColor(QPalette::Dark, previewlook::background);
    setPalette(colors);
    setAccessibleName(tr("Pages"));
}

PdfView::~PdfView() {
    open(nullptr);
}

void PdfView::open(const std::shared_ptr<QPdfDocument> &document) {
    setDocument(document.get());
    m_document = document;
    verticalScrollBar()->setValue(0);
}

void PdfView::resizeEvent(QResizeEvent *event) {
    QScrollBar &bar = *verticalScrollBar();
    const double share = double(bar.value()) / std::max(1, bar.maximum());
    QPdfView::resizeEvent(event);
    bar.setValue(qRound(share * bar.maximum())); // the pages grow with the width
}

} // namespace perchly
