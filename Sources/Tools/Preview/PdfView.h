#pragma once

#include "PdfPages.h"

#include <QAbstractScrollArea>
#include <QMap>
#include <QThread>

namespace perchly {

/// The pages of a PDF, one below the other, as wide as the window. Only those that are seen are
/// drawn.
class PdfView : public QAbstractScrollArea {
    Q_OBJECT
public:
    explicit PdfView(QWidget *parent = nullptr);
    ~PdfView() override;

    void open(const QString &path);

Q_SIGNALS:
    void opened();
    void failed();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void setSizes(const QList<QSizeF> &sizes);
    void layOut();
    void take(int page, const QImage &picture);
    [[nodiscard]] QSize pixelsOf(const QRect &page) const;

    QThread m_thread;
    PdfPages *m_pages; ///< lives in the thread
    QList<QSizeF> m_sizes;
    QList<QRect> m_places; ///< of each page, from the top of the document
    QMap<int, QImage> m_pictures;
    QMap<int, QSize> m_asked;
};

} // namespace perchly
