#include "WaylandDisplays.h"

#include "ScreenSpace.h"
#include "WaylandConnection.h"

#include <QGuiApplication>
#include <QScreen>

namespace perchly {

WaylandDisplays::WaylandDisplays(std::shared_ptr<WaylandConnection> connection)
    : m_connection(std::move(connection)) {
    m_announcement.setSingleShot(true);
    m_announcement.setInterval(0);
    connect(&m_announcement, &QTimer::timeout, this, &WaylandDisplays::announceIfChanged);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen *screen) {
        follow(screen);
        m_announcement.start();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, [this](const QScreen *screen) {
        m_areas.erase(screen);
        announceIfChanged();
    });
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        follow(screen);
    }
    m_announced = list();
}

QList<Display> WaylandDisplays::list() const {
    const ScreenSpace space = ScreenSpace::current();
    QList<Display> displays;
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        // Without displays, Qt has one without a name.
        if (!screen->name().isEmpty() && !screen->geometry().isEmpty()) {
            const QRect visible = m_isOverPanels ? screen->geometry() : freeArea(*screen);
            displays.append(Display{.name = screen->name(),
                                    .connector = screen->name(),
                                    .frame = space.fromQt(QRectF(screen->geometry())),
                                    .visibleFrame = space.fromQt(QRectF(visible))});
        }
    }
    return displays;
}

QRect WaylandDisplays::freeArea(QScreen &screen) const {
    const auto found = m_areas.find(&screen);
    const bool isKnown = found != m_areas.end() && !found->second.freeSize().isEmpty();
    return isKnown ? QRect(screen.geometry().topLeft(), found->second.freeSize())
                   : screen.geometry();
}

void WaylandDisplays::follow(QScreen *screen) {
    connect(screen, &QScreen::geometryChanged, this, [this] { m_announcement.start(); });
    if (WaylandConnection::outputOf(*screen) != nullptr) {
        const auto [area, isNew] = m_areas.try_emplace(screen, *m_connection, *screen);
        connect(&area->second, &FreeArea::changed, this, [this] { m_announcement.start(); });
    }
}

void WaylandDisplays::announceIfChanged() {
    QList<Display> now = list();
    const QPoint corner = QGuiApplication::screens().constFirst()->geometry().topLeft();
    if (now != m_announced || corner != m_firstCorner) { // points count from that display
        m_announced = std::move(now);
        m_firstCorner = corner;
        Q_EMIT changed();
    }
}

} // namespace perchly
