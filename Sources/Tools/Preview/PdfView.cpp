#include "PdfView.h"

#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace perchly {

namespace {

constexpr int gap = 14;
constexpr qsizetype mostKept = 12;

} // namespace

PdfView::PdfView(QWidget *parent)
    : QAbstractScrollArea(parent)
    , m_pages(new PdfPages) {
    m_pages->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_pages, &QObject::deleteLater);
    connect(m_pages, &PdfPages::loaded, this, &PdfView::setSizes);
    connect(m_pages, &PdfPages::rendered, this, &PdfView::take);
    m_thread.start();
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setSingleStep(40);
}

PdfView::~PdfView() {
    m_thread.quit();
    m_thread.wait();
}

void PdfView::open(const QString &path) {
    setSizes({});
    QMetaObject::invokeMethod(m_pages, [pages = m_pages, path] { pages->load(path); });
    connect(
        m_pages, &PdfPages::loaded, this,
        [this](const QList<QSizeF> &sizes) {
            if (sizes.isEmpty()) {
                Q_EMIT failed();
            } else {
                Q_EMIT opened();
            }
        },
        Qt::ConnectionType(Qt::AutoConnection | Qt::SingleShotConnection));
}

void PdfView::setSizes(const QList<QSizeF> &sizes) {
    m_sizes = sizes;
    m_pictures.clear();
    m_asked.clear();
    layOut();
    verticalScrollBar()->setValue(0);
}

void PdfView::layOut() {
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
    viewport()->update();
}

QSize PdfView::pixelsOf(const QRect &page) const {
    return (QSizeF(page.size()) * devicePixelRatioF()).toSize().boundedTo({4000, 6000});
}

void PdfView::take(int page, const QImage &picture) {
    m_pictures.insert(page, picture);
    if (m_pictures.size() > mostKept) { // the one that is farthest away is drawn again when needed
        const bool nearer = page - m_pictures.firstKey() > m_pictures.lastKey() - page;
        const int gone = nearer ? m_pictures.firstKey() : m_pictures.lastKey();
        m_pictures.remove(gone);
        m_asked.remove(gone);
    }
    viewport()->update();
}

void PdfView::paintEvent(QPaintEvent *) {
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const int scroll = verticalScrollBar()->value();
    for (int page = 0; page < int(m_places.size()); ++page) {
        const QRect place = m_places.at(page).translated(0, -scroll);
        if (!place.intersects(viewport()->rect())) {
            continue;
        }
        const QSize pixels = pixelsOf(place);
        if (m_asked.value(page) != pixels) {
            m_asked.insert(page, pixels);
            QMetaObject::invokeMethod(
                m_pages, [pages = m_pages, page, pixels] { pages->render(page, pixels); });
        }
        const QImage picture = m_pictures.value(page);
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
