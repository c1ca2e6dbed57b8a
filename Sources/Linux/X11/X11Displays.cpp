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

// Two displays of the same make are told apart by where they are plugged in.
void makeNamesDistinct(QList<Display> &displays, const QList<QScreen *> &screens) {
    QHash<QString, int> count;
    for (const Display &display : displays) {
        ++count[display.name];
    }
    for (qsizetype i = 0; i < displays.size(); ++i) {
        if (count.value(displays[i].name) > 1 && displays[i].name != screens[i]->name()) {
            displays[i].name += QStringLiteral(" (%1)").arg(screens[i]->name());
        }
    }
}

} // namespace

X11Displays::X11Displays(QObject *parent)
    : Displays(parent) {
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
    const QList<Strut> struts = m_struts.struts();
    QList<Display> displays;
    displays.reserve(screens.size());
    for (qsizetype i = 0; i < screens.size(); ++i) {
        const ScreenSpace::Screen &screen = space.screens()[i];
        const QRect pixels = ScreenSpace::pixelGeometry(screen);
        displays.append(Display{.name = nameOf(*screens[i]),
                                .frame = space.fromToolkit(QRectF(screen.geometry)),
                                .visibleFrame = space.fromPixels(
                                    visibleArea(pixels, m_struts.xScreenSize(), struts), screen)});
    }
    makeNamesDistinct(displays, screens);
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
