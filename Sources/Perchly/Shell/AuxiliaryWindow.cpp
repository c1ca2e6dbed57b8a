#include "AuxiliaryWindow.h"

#include <QCloseEvent>
#include <QScreen>

#include <algorithm>

namespace perchly {

namespace {

constexpr QRgb background = 0xff1c1c1e;
constexpr int titleBarHeight = 32; // about what window managers take

} // namespace

AuxiliaryWindow::AuxiliaryWindow(QQmlEngine &engine, const QString &title, const QSize &size,
                                 Buttons buttons, const QUrl &source, const QVariantMap &properties)
    : QQuickView(&engine, nullptr) {
    Qt::WindowFlags flags = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                            Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                            Qt::WindowMaximizeButtonHint;
    flags.setFlag(Qt::WindowMinimizeButtonHint, buttons == Buttons::CloseMinimizeMaximize);
    setFlags(flags);
    setTitle(title);
    setColor(background);
    setResizeMode(SizeRootObjectToView);
    setPersistentSceneGraph(false); // a hidden window keeps no picture of itself
    if (!source.isEmpty()) {
        setInitialProperties(properties);
        setSource(source);
    }
    setGeometry(centred(size));
}

QRect AuxiliaryWindow::centred(const QSize &size) const {
    QRect frame(QPoint(), size);
    if (screen() != nullptr) {
        // The title bar must stay in reach on a display that is too low for the window.
        const QRect room = screen()->availableGeometry().adjusted(0, titleBarHeight, 0, 0);
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
        return true;
    }
    return QQuickView::event(event);
}

} // namespace perchly
