#include "WaylandDisplays.h"

#include "ScreenSpace.h"

#include <QGuiApplication>
#include <QScreen>

namespace perchly {

WaylandDisplays::WaylandDisplays() {
    m_announcement.setSingleShot(true);
    m_announcement.setInterval(0);
    connect(&m_announcement, &QTimer::timeout, this, &Displays::changed);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen *screen) {
        follow(screen);
        m_announcement.start();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, [this] { m_announcement.start(); });
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        follow(screen);
    }
}

QList<Display> WaylandDisplays::list() const {
    const ScreenSpace space = ScreenSpace::current();
    QList<Display> displays;
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (const QScreen *screen : screens) {
        // Without displays, Qt has one without a name.
        if (!screen->name().isEmpty() && !screen->geometry().isEmpty()) {
            const ScreenRect frame = space.fromQt(QRectF(screen->geometry()));
            displays.append(Display{.name = screen->name(), .frame = frame, .visibleFrame = frame});
        }
    }
    return displays;
}

void WaylandDisplays::follow(QScreen *screen) {
    connect(screen, &QScreen::geometryChanged, this, [this] { m_announcement.start(); });
}

} // namespace perchly
