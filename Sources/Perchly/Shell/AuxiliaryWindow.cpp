#include "AuxiliaryWindow.h"

#include <QCloseEvent>
#include <QScreen>

namespace perchly {

namespace {

constexpr QRgb background = 0xff1c1c1e;

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
    QRect frame(QPoint(), size);
    if (screen() != nullptr) {
        frame.moveCenter(screen()->availableGeometry().center());
    }
    setGeometry(frame);
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
