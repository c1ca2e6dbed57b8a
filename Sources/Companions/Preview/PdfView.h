#pragma once

#include <QPdfView>

#include <memory>

namespace perchly {

/// The pages of a PDF, one below the other, as wide as the window.
class PdfView : public QPdfView {
    Q_OBJECT
public:
    PdfView();
    ~PdfView() override;

    /// Shows the document from its beginning; null shows nothing.
    void open(const std::shared_ptr<QPdfDocument> &document);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    std::shared_ptr<QPdfDocument> m_document;
};

} // namespace perchly
