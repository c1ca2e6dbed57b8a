#include "PdfView.h"

#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace perchly {

namespace {

constexpr int gap = 14;
constexpr qsizetype mostBytes = 64 << 20; // of pages

} // namespace

PdfView::PdfView(QWidget *parent)
    : QAbstractScrollArea(parent)
    , m_pages(new PdfPages)
    , m_pictures(mostBytes) {
    m_pages->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_pages, &QObject::deleteLater);
    connect(m_pages, &PdfPages::loaded, this, &PdfView::takeSizes);
    connect(m_pages, &PdfPages::rendered, this, &PdfView::takePicture);
    m_thread.start();
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setSingleStep(40);
}

PdfView::~PdfView() {
    m_thread.quit();
    m_thread.wait();
}

void PdfView::open(int number, const QString &path) {
    want(number);
    QMetaObject::invokeMethod(m_pages,
                              [pages = m_pages, number, path] { pages->load(number, path); });
}

void PdfView::forget() {
    if (m_number != 0) {
        want(0);
        QMetaObject::invokeMethod(m_pages, &PdfPages::forget);
    }
}

void PdfView::want(int number) {
    m_number = number;
    m_pages->want(number);
    setSizes({});
}

void PdfView::takeSizes(int number, const QList<QSizeF> &sizes) {
    if (number != m_number) {
        return;
    }
    setSizes(sizes);
    if (sizes.isEmpty()) {
        Q_EMIT failed(number);
    } else {
        Q_EMIT opened(number);
    }
}

void PdfView::setSizes(const QList<QSizeF> &sizes) {
    m_sizes = sizes;
    m_pictures.clear();
    m_isDrawing = false;
    layOut();
    verticalScrollBar()->setValue(0);
}

void PdfView::layOut() {
    // What stands at the top stays there.
    const int before = verticalScrollBar()->value();
    const int first = m_places.isEmpty() ? 0 : std::max(0, pagesInView().first);
    const QRect old = m_places.value(first);
    m_places.clear();
    const int pageWidth = std::max(50, viewport()->width() - 2 * gap);
    int top = gap;
    for (const QSizeF &size : m_sizes) {
        const int height = std::clamp(qRound(pageWidth * size.height() / size.width()), 1, 20'000);
        m_places.append(QRect(gap, top, pageWidth, height));
        top += height + gap;
    }
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(0, top - viewport()->height()));
    if (const QRect place = m_places.value(first); old.isValid() && place.isValid()) {
        const double share = double(before - old.top()) / old.height();
        verticalScrollBar()->setValue(place.top() + qRound(share * place.height()));
    }
    viewport()->update();
}

QSize PdfView::pixelsOf(int page) const {
    const QSize size = m_places.at(page).size();
    return (QSizeF(size) * devicePixelRatioF()).toSize().boundedTo({4000, 6000});
}

PageRange PdfView::pagesInView() const {
    const int top = verticalScrollBar()->value();
    const int bottom = top + viewport()->height();
    const auto begin = m_places.begin();
    const auto first = std::partition_point(
        begin, m_places.end(), [&](const QRect &place) { return place.bottom() < top; });
    const auto end = std::partition_point(first, m_places.end(),
                                          [&](const QRect &place) { return place.top() < bottom; });
    return {int(first - begin), int(end - begin) - 1};
}

void PdfView::takePicture(int number, int page, const QSize &pixels, const QImage &picture) {
    if (number != m_number) {
        return;
    }
    m_isDrawing = false;
    m_pictures.insert(page, pixels, picture);
    viewport()->update();
}

// Which page is next is only known when its turn comes: the person may have gone on meanwhile.
void PdfView::drawNext(PageRange inView) {
    for (int page = inView.first; page <= inView.last && !m_isDrawing; ++page) {
        const QSize pixels = pixelsOf(page);
        if (!m_pictures.isDrawn(page, pixels)) {
            m_isDrawing = true;
            QMetaObject::invokeMethod(m_pages, [pages = m_pages, number = m_number, page, pixels] {
                pages->render(number, page, pixels);
            });
        }
    }
}

void PdfView::paintEvent(QPaintEvent *) {
    const PageRange inView = pagesInView();
    m_pictures.trim(inView);
    drawNext(inView);
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (int page = inView.first; page <= inView.last; ++page) {
        const QRect place = m_places.at(page).translated(0, -verticalScrollBar()->value());
        const QImage picture = m_pictures.picture(page);
        if (picture.isNull()) {
            painter.fillRect(place, QColor(255, 255, 255, 20));
        } else {
            painter.drawImage(place, picture);
        }
    }
}

void PdfView::resizeEvent(QResizeEvent *) {
    layOut();
}

} // namespace perchly
