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

/// The window of the preview. Left and right switch items; Space, Escape and Ctrl+W close it. Items
/// are read in the background; until then, or if an item cannot be shown, its icon, name, kind and
/// size are shown. A minimised window stays open: playback pauses until it is restored, and a
/// request restores it.
class PreviewWindow : public QWidget {
    Q_OBJECT
public:
    PreviewWindow();
    ~PreviewWindow() override;

    /// Shows the item, or closes the window if it shows that item already and `toggle` is set.
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
    int m_number = 0; ///< counts the items requested, to ignore late results
    FileFacts m_current;
    QStackedWidget m_stack;
    FactsView m_facts;
    PictureView m_picture;
    QPlainTextEdit m_text;
    PdfView *m_pdf = nullptr;     ///< created when first needed
    MediaView *m_media = nullptr; ///< the player of the shown item, if it has one
    QLabel m_caption;
    QThreadPool m_pool;
};

} // namespace perchly
