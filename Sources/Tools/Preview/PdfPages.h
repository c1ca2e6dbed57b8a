#pragma once

#include <QImage>
#include <QList>
#include <QObject>
#include <QSizeF>

#include <memory>

class QPdfDocument;

namespace perchly {

/// One PDF document, read and drawn in a thread of its own, which the object is moved to.
class PdfPages : public QObject {
    Q_OBJECT
public:
    PdfPages();
    ~PdfPages() override;

    void load(const QString &path);
    void render(int page, const QSize &pixels);

Q_SIGNALS:
    /// The pages' sizes in points, of the first thousand at most; empty if it is no PDF that can be
    /// shown.
    void loaded(const QList<QSizeF> &sizes);
    void rendered(int page, const QImage &picture);

private:
    std::unique_ptr<QPdfDocument> m_document; ///< made in the thread
};

} // namespace perchly
