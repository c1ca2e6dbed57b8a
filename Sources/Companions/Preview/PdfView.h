#pragma once

#include "PagePictures.h"
#include "PdfPages.h"

#include <QAbstractScrollArea>
#include <QThread>

namespace perchly {

/// The pages of a PDF, one below the other, as wide as the window. Only those that are seen are
/// drawn, one after the other.
class PdfView : public QAbstractScrollArea {
    Q_OBJECT
public:
    explicit PdfView(QWidget *parent = nullptr);
    ~PdfView() override;

    /// Shows another document, once it is read. Its number, which is not 0, comes with the answer;
    /// a document that is opened or forgotten meanwhile leaves it without one.
    void open(int number, const QString &path);
    /// Lets go of the document and its pictures.
    void forget();

Q_SIGNALS:
    void opened(int number);
    /// It is no PDF that can be shown.
    void failed(int number);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void want(int number);
    void setSizes(const QList<QSizeF> &sizes);
    void layOut();
    void takeSizes(int number, const QList<QSizeF> &sizes);
    void takePicture(int number, int page, const QSize &pixels, const QImage &picture);
    void drawNext(PageRange inView);
    [[nodiscard]] PageRange pagesInView() const;
    [[nodiscard]] QSize pixelsOf(int page) const;

    QThread m_thread;
    PdfPages *m_pages; ///< lives in the thread
    QList<QSizeF> m_sizes;
    QList<QRect> m_places; ///< of each page, from the top of the document
    PagePictures m_pictures;
    int m_number = 0;         ///< of the document
    bool m_isDrawing = false; ///< one of its pages
};

} // namespace perchly
