#include "PreviewWindow.h"

#include "MediaView.h"
#include "PdfView.h"
#include "PreviewLook.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto shownSoon = 30ms;
constexpr int mostTries = 4;

constexpr QSize smallest(380, 260);
constexpr QSize factsSize(460, 320);
constexpr QSize pageSize(760, 860);
constexpr int controlsHeight = 48;
constexpr int captionHeight = 34;

} // namespace

PreviewWindow::PreviewWindow()
    : m_focus(m_connection) {
    setWindowTitle(QStringLiteral("Perchly Preview"));
    setMinimumSize(smallest);
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
    m_text.setAccessibleName(QStringLiteral("Text"));
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
    m_pool.setMaxThreadCount(4); // one that reads from a dead network is not waited for
    qApp->installEventFilter(this);
}

PreviewWindow::~PreviewWindow() = default;

void PreviewWindow::handle(const PreviewRequest &request) {
    const QUrl shown = m_items.value(m_index);
    if (isVisible() && !isOnShownDesktop()) {
        hide(); // and shows it on this desktop below
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
    }
    m_pool.clear(); // what was passed by before it could be read
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
        showPdf();
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
    m_facts.setAccessibleName(m_current.name);
    m_facts.setAccessibleDescription(m_current.details);
    present(&m_facts, factsSize);
}

void PreviewWindow::showPdf() {
    if (m_pdf == nullptr) {
        m_pdf = new PdfView;
        m_pdf->setAccessibleName(QStringLiteral("Pages"));
        m_stack.addWidget(m_pdf);
        connect(m_pdf, &PdfView::failed, this, [this](int number) {
            if (number == m_number) {
                showFacts();
            }
        });
        connect(m_pdf, &PdfView::opened, this, [this](int number) {
            if (number == m_number) {
                present(m_pdf, pageSize);
            }
        });
    }
    m_pdf->open(m_number, m_items.at(m_index).toLocalFile());
}

void PreviewWindow::showMedia() {
    showFacts(); // and let the person see them before the thread is busy with the first player
    QTimer::singleShot(shownSoon, this, [this, number = m_number] {
        if (number == m_number) {
            m_tries = 0;
            playMedia();
            present(m_media, factsSize);
        }
    });
}

void PreviewWindow::playMedia() {
    ++m_tries;
    m_media = new MediaView;
    m_stack.addWidget(m_media);
    connect(m_media, &MediaView::failed, this, [this, number = m_number] {
        if (number == m_number) {
            mediaFailed();
        }
    });
    connect(m_media, &MediaView::firstFrame, this, [this, number = m_number](const QSize &size) {
        if (number == m_number) {
            const QSize points = (QSizeF(size) / devicePixelRatioF()).toSize();
            present(m_media, points + QSize(0, controlsHeight));
        }
    });
    m_media->play(m_items.at(m_index).toLocalFile(), m_current);
    if (isMinimized()) {
        m_media->suspend();
    }
}

void PreviewWindow::mediaFailed() {
    // The media library gives a video up when its picture is not taken within a third of a second,
    // which happens while decoders are loaded for the first time.
    if (m_media->hasBegun() && m_tries < mostTries) {
        dropMedia();
        playMedia();
        m_stack.setCurrentWidget(m_media);
        m_media->setFocus();
    } else {
        showFacts();
    }
}

void PreviewWindow::dropMedia() {
    if (m_media != nullptr) {
        m_media->disconnect(this);
        m_media->deleteLater(); // it may be the one who asks for it
        m_media = nullptr;
    }
}

void PreviewWindow::present(QWidget *view, const QSize &wanted) {
    m_stack.setCurrentWidget(view);
    if (view != m_media) {
        dropMedia();
    }
    if (m_pdf != nullptr && view != m_pdf) {
        m_pdf->forget();
    }
    const bool isSaid = (view == &m_facts || view == m_media) && wanted == factsSize; // by itself
    m_caption.setText(isSaid ? QString() : m_current.details);
    view->setFocus();
    const QRect room = screen()->availableGeometry();
    const QSize most(room.width() * 4 / 5, room.height() * 4 / 5 - captionHeight);
    QSize size = wanted;
    if (size.width() > most.width() || size.height() > most.height()) {
        size = view == &m_text || view == m_pdf ? size.boundedTo(most)
                                                : size.scaled(most, Qt::KeepAspectRatio);
    }
    QRect frame(QPoint(), (size + QSize(0, captionHeight)).expandedTo(smallest));
    frame.moveCenter(isVisible() ? geometry().center() : room.center());
    // A window in a corner grows inwards. Its title bar counts.
    const QMargins border(0, geometry().y() - frameGeometry().y(), 0, 0);
    const QRect inner = room - border;
    frame.moveLeft(std::clamp(frame.left(), inner.left(),
                              std::max(inner.left(), inner.right() + 1 - frame.width())));
    frame.moveTop(std::clamp(frame.top(), inner.top(),
                             std::max(inner.top(), inner.bottom() + 1 - frame.height())));
    setGeometry(frame);
    // The user may have minimised it or gone to another desktop while the item was read.
    if (!isVisible() || (!isMinimized() && isOnShownDesktop())) {
        comeToFront();
    }
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

bool PreviewWindow::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::KeyPress && isActiveWindow() && watched->isWidgetType()) {
        if (handleKey(*static_cast<QKeyEvent *>(event))) {
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

bool PreviewWindow::handleKey(const QKeyEvent &event) {
    const bool plain = event.modifiers() == Qt::NoModifier;
    const bool closes =
        (plain && (event.key() == Qt::Key_Space || event.key() == Qt::Key_Escape)) ||
        (event.key() == Qt::Key_W && event.modifiers() == Qt::ControlModifier);
    if (closes && !event.isAutoRepeat()) {
        close();
        return true;
    }
    const auto arrows = event.modifiers() & ~Qt::KeypadModifier;
    if (arrows == Qt::NoModifier && event.key() == Qt::Key_Left) {
        step(-1);
        return true;
    }
    if (arrows == Qt::NoModifier && event.key() == Qt::Key_Right) {
        step(1);
        return true;
    }
    return closes;
}

void PreviewWindow::hideEvent(QHideEvent *event) {
    QWidget::hideEvent(event);
    if (event->spontaneous()) { // it is minimised
        if (m_media != nullptr) {
            m_media->suspend();
        }
        return;
    }
    setWindowState(windowState() & ~Qt::WindowMinimized); // it is not to come back like that
    dropMedia();
    if (m_pdf != nullptr) {
        m_pdf->forget();
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
