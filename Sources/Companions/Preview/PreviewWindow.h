#pragma once

#include "FactsView.h"
#include "KeyboardFocus.h"
#include "PictureView.h"
#include "PreviewContent.h"
#include "RequestReader.h"
#include "XcbConnection.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QStackedWidget>
#include <QThreadPool>
#include <QWidget>

namespace perchly {

class MediaView;
class PdfView;

/// The window of the preview. Left and right go from item to item; Space, Escape and Ctrl+W close
/// it. What an item holds is read in the background; until it is there, and where it cannot be
/// shown, its icon, name, kind and size stand for it. A minimised window stays open: what plays
/// pauses until it is back, and a request brings it back.
class PreviewWindow : public QWidget {
    Q_OBJECT
public:
    PreviewWindow();
    ~PreviewWindow() override;

    /// Shows the item, or closes if it is shown already and `toggle` is set.
    void handle(const PreviewRequest &request);

Q_SIGNALS:
    void closed();

protected:
    void hideEvent(QHideEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void addShortcuts();
    void step(qsizetype by);
    void showItem();
    void take(const PreviewContent &content);
    void showFacts();
    void showPdf(const std::shared_ptr<QPdfDocument> &document);
    void showMedia();
    void playMedia();
    void dropMedia();
    void present(QWidget *view, const QSize &wanted);
    void place(const QSize &size);
    [[nodiscard]] bool isOnShownDesktop();
    void comeToFront();

    XcbConnection m_connection;
    KeyboardFocus m_focus;
    QList<QUrl> m_items;
    qsizetype m_index = 0;
    int m_number = 0; ///< of the item that was asked for last
    FileFacts m_current;
    QStackedWidget m_stack;
    FactsView m_facts;
    PictureView m_picture;
    QPlainTextEdit m_text;
    PdfView *m_pdf = nullptr;     ///< made when first needed
    MediaView *m_media = nullptr; ///< of the item that is shown, if it plays
    QLabel m_caption;
    QThreadPool m_pool;
};

} // namespace perchly
