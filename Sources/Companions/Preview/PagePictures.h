#pragma once

#include <QImage>
#include <QMap>
#include <QSize>

namespace perchly {

/// The pages from the first to the last one; none if the last is before the first.
struct PageRange {
    int first = 0;
    int last = -1;
};

/// The pictures of a document's pages, so many that they take no more than a number of bytes. Those
/// in view are kept whatever they take.
class PagePictures {
public:
    explicit PagePictures(qsizetype mostBytes);

    void clear();
    /// A picture of the size that was asked for, in pixels; null if the page could not be drawn.
    void insert(int page, const QSize &pixels, const QImage &picture);
    /// Whether there is nothing to gain from drawing the page at this size.
    [[nodiscard]] bool isDrawn(int page, const QSize &pixels) const;
    /// The page as it was drawn last, whatever its size was; null if it was not.
    [[nodiscard]] QImage picture(int page) const;
    /// Drops pages out of view, the farthest first, while there are too many bytes.
    void trim(PageRange inView);

private:
    struct Drawn {
        QSize pixels = {};
        QImage picture = {};
    };

    void remove(int page);

    qsizetype m_mostBytes;
    qsizetype m_bytes = 0;
    QMap<int, Drawn> m_pages;
};

} // namespace perchly
