#include "AuxiliaryWindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>

#include <algorithm>
#include <utility>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace perchly {

namespace {

constexpr QRgb background = 0xff0b0d0f; // the views' own colour, until they are painted
constexpr std::chrono::milliseconds releaseDelay{3000};
constexpr int titleBarHeight = 32; // roughly that of window managers

} // namespace

AuxiliaryWindow::AuxiliaryWindow(QQmlEngine &engine, const WindowContent &content)
    : QQuickView(&engine, nullptr) {
    Qt::WindowFlags flags = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                            Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                            Qt::WindowMaximizeButtonHint;
    flags.setFlag(Qt::WindowMinimizeButtonHint,
                  content.buttons == WindowContent::Buttons::CloseMinimizeMaximize);
    setFlags(flags);
    setTitle(content.title);
    setColor(background);
    setResizeMode(SizeRootObjectToView);
    setPersistentSceneGraph(false); // frees the textures of a hidden window
    m_rest.setSingleShot(true);
    connect(&m_rest, &QTimer::timeout, this, &AuxiliaryWindow::giveMemoryBack);
    setGeometry(centred(content.size, 0));
    if (!content.view.isEmpty()) {
        setInitialProperties(content.properties);
        setSource(content.view);
        applyMinimumSize();
    }
    // Queued, since Qt first changes the size in points.
    connect(screen(), &QScreen::logicalDotsPerInchChanged, this, &AuxiliaryWindow::keepSize,
            Qt::QueuedConnection);
}

void AuxiliaryWindow::keepSize() {
    resize(size() * (devicePixelRatio() / std::exchange(m_ratio, devicePixelRatio())));
    applyMinimumSize();
}

void AuxiliaryWindow::appearOn(QScreen *screen, int covered) {
    if (!isVisible() && (!m_hasAppeared || screen != this->screen())) {
        setScreen(screen);
        setGeometry(centred(size(), covered));
        applyMinimumSize();
    }
    m_hasAppeared = true;
}

void AuxiliaryWindow::giveMemoryBack() {
    if (!isVisible()) {
        releaseResources();
        engine()->collectGarbage();
#ifdef __GLIBC__
        malloc_trim(0);
#endif
    }
}

void AuxiliaryWindow::applyMinimumSize() {
    if (const QQuickItem *root = rootObject()) {
        const QSize wanted(root->property("minimumWidth").toInt(),
                           root->property("minimumHeight").toInt());
        setMinimumSize(wanted.boundedTo(size())); // a small display may have no room for it
    }
}

QRect AuxiliaryWindow::centred(const QSize &size, int covered) const {
    QRect frame(QPoint(), size);
    if (screen() != nullptr) {
        // Keeps the title bar reachable on a display that is too low for the window.
        QRect room = screen()->availableGeometry();
        room.setTop(std::max(room.top(), screen()->geometry().top() + covered) + titleBarHeight);
        frame.setSize(size.boundedTo(room.size()));
        frame.moveCenter(screen()->availableGeometry().center());
        frame.moveTop(std::max(frame.top(), room.top()));
    }
    return frame;
}

bool AuxiliaryWindow::event(QEvent *event) {
    if (event->type() == QEvent::Close) {
        event->ignore();
        hide();
        m_rest.start(releaseDelay);
        return true;
    }
    return QQuickView::event(event);
}

void AuxiliaryWindow::keyPressEvent(QKeyEvent *event) {
    event->ignore();
    QQuickView::keyPressEvent(event);
    const bool closes = (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) ||
                        (event->key() == Qt::Key_W && event->modifiers() == Qt::ControlModifier);
    if (closes && !event->isAccepted()) {
        event->accept();
        if (!event->isAutoRepeat()) { // a held key may have closed something inside
            close();
        }
    }
}

} // namespace perchly
