#include "PagePictures.h"

namespace perchly {

PagePictures::PagePictures(qsizetype mostBytes)
    : m_mostBytes(mostBytes) {}

void PagePictures::clear() {
    m_pages.clear();
    m_bytes = 0;
}

void PagePictures::insert(int page, const QSize &pixels, const QImage &picture) {
    remove(page);
    m_pages.insert(page, {pixels, picture});
    m_bytes += picture.sizeInBytes();
}

bool PagePictures::isDrawn(int page, const QSize &pixels) const {
    return m_pages.value(page).pixels == pixels;
}

QImage PagePictures::picture(int page) const {
    return m_pages.value(page).picture;
}

void PagePictures::trim(PageRange inView) {
    while (m_bytes > m_mostBytes) {
        const int above = inView.first - m_pages.firstKey();
        const int below = m_pages.lastKey() - inView.last;
        if (above <= 0 && below <= 0) {
            return;
        }
        remove(above > below ? m_pages.firstKey() : m_pages.lastKey());
    }
}

void PagePictures::remove(int page) {
    m_bytes -= m_pages.take(page).picture.sizeInBytes();
}

} // namespace perchly
