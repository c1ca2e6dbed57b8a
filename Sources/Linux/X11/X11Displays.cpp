#include "X11Displays.h"

#include "ScreenSpace.h"

#include <QGuiApplication>
#include <QScreen>

namespace perchly {

namespace {

QString nameOf(const QScreen &screen) {
    const QString made = (screen.manufacturer() + QLatin1Char(' ') + screen.model()).trimmed();
    return screen.model().isEmpty() ? screen.name() : made;
}

} // namespace

X11Displays::X11Displays() {
    m_announcement.setSingleShot(true);
    m_announcement.setInterval(0);
    connect(&m_announcement, &QTimer::timeout, this, &X11Displays::announceIfChanged);
    const auto soon = [this] { m_announcement.start(); };
    connect(&m_struts, &StrutWatcher::changed, this, soon);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen *screen) {
        follow(screen);
        m_announcement.start();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, soon);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, soon);
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        follow(screen);
    }
    m_announced = list();
}

QList<Display> X11Displays::list() const {
    const QList<QScreen *> screens = QGuiApplication::screens();
    const ScreenSpace space = ScreenSpace::current();
    QStringList names;
    for (const QScreen *screen : screens) {
        names.append(nameOf(*screen));
    }
    QList<Display> displays;
    for (qsizetype i = 0; i < screens.size(); ++i) {
        const ScreenSpace::Screen &screen = space.screens()[i];
        const QRect visible = visibleArea(ScreenSpace::pixelGeometry(screen),
                                          m_struts.xScreenSize(), m_struts.struts());
        // The connector tells displays of the same model apart.
        const QString connector = screens[i]->name();
        const bool isTwin = names.count(names[i]) > 1 && names[i] != connector;
        displays.append(
            Display{.name = isTwin ? QStringLiteral("%1 (%2)").arg(names[i], connector) : names[i],
                    .connector = connector,
                    .frame = space.fromQt(QRectF(screen.geometry)),
                    .visibleFrame = space.fromPixels(visible, screen)});
    }
    return displays;
}

void X11Displays::follow(QScreen *screen) {
    const auto soon = [this] { m_announcement.start(); };
    connect(screen, &QScreen::geometryChanged, this, soon);
    connect(screen, &QScreen::physicalDotsPerInchChanged, this, soon);
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, soon);
}

void X11Displays::announceIfChanged() {
    QList<Display> now = list();
    if (now == m_announced) {
        return;
    }
    m_announced = std::move(now);
    Q_EMIT changed();
}

} // namespace perchly
