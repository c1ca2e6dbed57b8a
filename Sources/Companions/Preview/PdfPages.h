#pragma once

#include <QImage>
#include <QList>
#include <QObject>
#include <QSizeF>

#include <atomic>
#include <memory>

class QPdfDocument;

namespace perchly {

/// One PDF document, read and drawn in a thread of its own, which the object is moved to. Documents
/// have numbers, other than 0, and what is asked of one that is no longer wanted is passed over
/// without an answer.
class PdfPages : public QObject {
    Q_OBJECT
public:
    PdfPages();
    ~PdfPages() override;

    /// The document that is wanted from now on; 0 for none. Any thread.
    void want(int number) { m_wanted = number; }

    void load(int number, const QString &path);
    void render(int number, int page, const QSize &pixels);
    void forget();

Q_SIGNALS:
    /// The pages' sizes in points, of the first thousand at most; empty if it is no PDF that can be
    /// shown.
    void loaded(int number, const QList<QSizeF> &sizes);
    /// Null if there is no memory for it.
    void rendered(int number, int page, const QSize &pixels, const QImage &picture);

private:
    std::atomic<int> m_wanted = 0;
    std::unique_ptr<QPdfDocument> m_document; ///< made in the thread
};

} // namespace perchly
