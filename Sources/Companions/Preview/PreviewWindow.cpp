#include "PreviewWindow.h"

#include "MediaView.h"
#include "PdfView.h"
#include "PreviewLook.h"

#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto playDelay = 30ms;

constexpr QSize minSize(380, 260);
constexpr QSize factsSize(460, 320);
constexpr QSize pageSize(760, 860);
constexpr int controlsHeight = 48;
constexpr int captionHeight = 34;

} // namespace

PreviewWindow::PreviewWindow()
    : m_focus(m_connection) {
    setWindowTitle(tr("Perchly Preview"));
    setMinimumSize(minSize);
    setStyleSheet(previewlook::styleSheet());
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, previewlook::background);
    palette.setColor(QPalette::WindowText, previewlook::foreground);
    setPalette(palette);
    m_text.setReadOnly(true);
    m_text.setFrameShape(QFrame::NoFrame);
    m_text.setLineWrapMode(QPlainTextEdit::WidgetWidth);
    m_text.document()->setDocumentMargin(18);
    QFont monospaced(QStringLiteral("monospace"));
    monospaced.setPixelSize(13);
    m_text.setFont(monospaced);
    m_text.setAccessibleName(tr("Text"));
    m_caption.setFont(previewlook::font(11));
    m_caption.setAlignment(Qt::AlignCenter);
    m_caption.setFixedHeight(captionHeight);
    m_caption.setTextFormat(Qt::PlainText);
    palette.setColor(QPalette::WindowText, previewlook::secondary);
    m_caption.setPalette(palette);
    for (QWidget *view : std::initializer_list<QWidget *>{&m_facts, &m_picture, &m_text}) {
        m_stack.addWidget(view);
    }
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(&m_stack, 1);
    column->addWidget(&m_caption);
    m_pool.setMaxThreadCount(4); // so that a read from a dead network does not hold up the next
    addShortcuts();
}

PreviewWindow::~PreviewWindow() = default;

void PreviewWindow::addShortcuts() {
    for (const QKeySequence &keys : {QKeySequence(Qt::Key_Space), QKeySequence(Qt::Key_Escape),
                                     QKeySequence(Qt::CTRL | Qt::Key_W)}) {
        auto *closing = new QShortcut(keys, this, [this] { close(); });
        closing->setAutoRepeat(false); // the key that opened the window may still be held
    }
    new QShortcut(Qt::Key_Left, this, [this] { step(-1); });
    new QShortcut(Qt::Key_Right, this, [this] { step(1); });
}

void PreviewWindow::handle(const PreviewRequest &request) {
    const QUrl shown = m_items.value(m_index);
    if (isVisible() && !isOnShownDesktop()) {
        hide(); // present() shows it again, on this desktop
    }
    if (!isVisible()) {
        const QList<QScreen *> screens = QGuiApplication::screens();
        const auto wanted = std::ranges::find(screens, request.screen, &QScreen::name);
        setScreen(wanted == screens.end() ? screen() : *wanted);
    }
    m_items = request.items;
    m_index = request.index;
    const bool toggles = request.toggle && isVisible() && m_items.at(m_index) == shown;
    if (toggles && !isMinimized()) {
        close();
        return;
    }
    if (isVisible() && isMinimized()) {
        comeToFront();
    }
    if (!toggles) {
        showItem();
    }
}

void PreviewWindow::step(qsizetype by) {
    const qsizetype next = m_index + by;
    if (next >= 0 && next < m_items.size()) {
        m_index = next;
        showItem();
    }
}

void PreviewWindow::showItem() {
    if (m_media != nullptr) {
        m_media->pause();
        m_media->disconnect(this); // its signals are about the previous item
    }
    m_pool.clear(); // drop items that were skipped before being read
    const QSize largest = (QSizeF(screen()->size()) * devicePixelRatioF()).toSize();
    m_pool.start([this, number = ++m_number, url = m_items.at(m_index), largest] {
        const PreviewContent content = loadPreview(url, largest);
        QMetaObject::invokeMethod(this, [this, number, content] {
            if (number == m_number) {
                take(content);
            }
        });
    });
}

void PreviewWindow::take(const PreviewContent &content) {
    m_current = content.facts;
    setWindowTitle(m_current.name);
    switch (m_current.kind) {
    case FileFacts::Kind::Picture:
        m_picture.show(content.picture);
        m_picture.setAccessibleName(m_current.name);
        present(&m_picture, (QSizeF(content.picture.size()) / devicePixelRatioF()).toSize());
        break;
    case FileFacts::Kind::Text:
        m_text.setPlainText(content.text);
        present(&m_text, pageSize);
        break;
    case FileFacts::Kind::Pdf:
        showPdf(content.pdf);
        break;
    case FileFacts::Kind::Media:
        showMedia();
        break;
    case FileFacts::Kind::Other:
        showFacts();
        break;
    }
}

void PreviewWindow::showFacts() {
    m_facts.show(m_current);
    present(&m_facts, factsSize);
}

void PreviewWindow::showPdf(const std::shared_ptr<QPdfDocument> &document) {
    if (m_pdf == nullptr) {
        m_pdf = new PdfView;
        m_stack.addWidget(m_pdf);
    }
    m_pdf->open(document);
    present(m_pdf, pageSize);
}

void PreviewWindow::showMedia() {
    showFacts(); // painted before the first player blocks the thread
    QTimer::singleShot(playDelay, this, [this, number = m_number] {
        if (number == m_number) {
            playMedia();
        }
    });
}

void PreviewWindow::playMedia() {
    m_media = new MediaView(m_items.at(m_index).toLocalFile(), m_current);
    m_stack.addWidget(m_media);
    if (isMinimized()) {
        m_media->suspend();
    }
    connect(m_media, &MediaView::failed, this, &PreviewWindow::showFacts);
    connect(m_media, &MediaView::firstFrame, this, [this](const QSize &size) {
        const QSize points = (QSizeF(size) / devicePixelRatioF()).toSize();
        present(m_media, points + QSize(0, controlsHeight));
    });
    present(m_media, factsSize);
}

void PreviewWindow::dropMedia() {
    if (m_media != nullptr) {
        m_media->disconnect(this);
        m_media->deleteLater(); // it may be the caller
        m_media = nullptr;
    }
}

void PreviewWindow::present(QWidget *view, const QSize &wanted) {
    m_stack.setCurrentWidget(view);
    if (view != m_media) {
        dropMedia();
    }
    if (m_pdf != nullptr && view != m_pdf) {
        m_pdf->open(nullptr);
    }
    const bool viewShowsDetails = (view == &m_facts || view == m_media) && wanted == factsSize;
    m_caption.setText(viewShowsDetails ? QString() : m_current.details);
    view->setFocus();
    const QRect room = screen()->availableGeometry();
    const QSize most(room.width() * 4 / 5, room.height() * 4 / 5 - captionHeight);
    const bool scrolls = view == &m_text || view == m_pdf;
    const QSize size = scrolls || most.expandedTo(wanted) == most
                           ? wanted.boundedTo(most)
                           : wanted.scaled(most, Qt::KeepAspectRatio);
    place((size + QSize(0, captionHeight)).expandedTo(minSize));
    // The user may have minimised it or gone to another desktop while the item was read.
    if (!isVisible() || (!isMinimized() && isOnShownDesktop())) {
        comeToFront();
    }
}

/// Centres the window on its old middle, or on the screen's if it is hidden, and keeps it and its
/// title bar on the screen.
void PreviewWindow::place(const QSize &size) {
    const QRect room = screen()->availableGeometry();
    QRect frame(QPoint(), size);
    frame.moveCenter(isVisible() ? geometry().center() : room.center());
    const QRect inner = room.adjusted(0, geometry().y() - frameGeometry().y(), 0, 0);
    frame.moveRight(std::min(frame.right(), inner.right()));
    frame.moveLeft(std::max(frame.left(), inner.left()));
    frame.moveBottom(std::min(frame.bottom(), inner.bottom()));
    frame.moveTop(std::max(frame.top(), inner.top()));
    setGeometry(frame);
}

bool PreviewWindow::isOnShownDesktop() {
    const auto own =
        m_connection.property(xcb_window_t(winId()), m_connection.atom("_NET_WM_DESKTOP"));
    const auto shown =
        m_connection.property(m_connection.root(), m_connection.atom("_NET_CURRENT_DESKTOP"));
    constexpr quint32 all = 0xffffffff;
    return own.isEmpty() || shown.isEmpty() || own.first() == all || own.first() == shown.first();
}

void PreviewWindow::comeToFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    m_focus.activate(xcb_window_t(winId()));
}

void PreviewWindow::hideEvent(QHideEvent *event) {
    QWidget::hideEvent(event);
    if (event->spontaneous()) { // minimised
        if (m_media != nullptr) {
            m_media->suspend();
        }
        return;
    }
    setWindowState(windowState() & ~Qt::WindowMinimized); // do not reopen minimised
    dropMedia();
    if (m_pdf != nullptr) {
        m_pdf->open(nullptr);
    }
    ++m_number;
    Q_EMIT closed();
}

void PreviewWindow::showEvent(QShowEvent *event) {
    QWidget::showEvent(event);
    if (event->spontaneous() && m_media != nullptr) {
        m_media->resume();
    }
}

} // namespace perchly
