#include "Theme.h"

#include "ShadowPictures.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QHash>
#include <QKeyEvent>
#include <QQmlEngine>

#include <algorithm>
#include <array>
#include <cmath>

namespace perchly {

namespace {

bool isKey(const QKeyEvent &press) {
    constexpr std::array modifiers{Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt,
                                   Qt::Key_AltGr, Qt::Key_Meta,    Qt::Key_CapsLock};
    return !(press.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) &&
           std::ranges::find(modifiers, press.key()) == modifiers.end();
}

constexpr QColor plainGrey(152, 152, 157);

constexpr double scrimOpacity = 0.5;
constexpr float hoverPlate = 0.075F; ///< the brightest plate below a text that is not white
constexpr double minContrast = 4.5;
constexpr double minHighContrast = 7;

double luminance(const QColor &color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor &lighter, const QColor &darker) {
    return (luminance(lighter) + 0.05) / (luminance(darker) + 0.05);
}

QColor mixed(const QColor &from, const QColor &to, float part) {
    return QColor::fromRgbF(std::lerp(from.redF(), to.redF(), part),
                            std::lerp(from.greenF(), to.greenF(), part),
                            std::lerp(from.blueF(), to.blueF(), part));
}

} // namespace

Theme::Theme() {
    qGuiApp->installEventFilter(this);
    connect(this, &Theme::accentChanged, this, &Theme::shelfChanged);
    connect(this, &Theme::contrastChanged, this, &Theme::shelfChanged);
}

bool Theme::eventFilter(QObject *, QEvent *event) {
    const bool isUsed =
        event->type() == QEvent::KeyPress && isKey(*static_cast<const QKeyEvent *>(event));
    if ((isUsed || event->type() == QEvent::MouseButtonPress) && m_keysUsed != isUsed) {
        m_keysUsed = isUsed;
        Q_EMIT keysUsedChanged();
    }
    return false;
}

Theme *Theme::create(QQmlEngine *qmlEngine, QJSEngine *) {
    qmlEngine->addImageProvider(QStringLiteral("shadows"), new ShadowPictures);
    return new Theme;
}

QString Theme::family() {
    static const QString chosen = [] {
        const QString preferred = QStringLiteral("Inter");
        // Matching one font is far cheaper than listing every family.
        return QFontInfo(QFont(preferred)).family() == preferred
                   ? preferred
                   : QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    }();
    return chosen;
}

void Theme::setReduceMotion(bool reduce) {
    if (m_reduceMotion == reduce) {
        return;
    }
    m_reduceMotion = reduce;
    Q_EMIT reduceMotionChanged();
}

void Theme::setAccent(const QColor &accent) {
    if (m_accent == accent) {
        return;
    }
    m_accent = accent;
    QGuiApplication::setPalette(palette(accent));
    Q_EMIT accentChanged();
}

void Theme::setHighContrast(bool high) {
    if (m_highContrast != high) {
        m_highContrast = high;
        Q_EMIT contrastChanged();
    }
}

void Theme::setShelf(const QColor &shelf) {
    if (m_shelf != shelf) {
        m_shelf = shelf;
        Q_EMIT shelfChanged();
    }
}

QColor Theme::grey() const {
    return m_highContrast ? QColor(216, 216, 220) : plainGrey;
}

QColor Theme::line() const {
    return QColor::fromRgbF(1, 1, 1, m_highContrast ? 0.55F : 0.12F);
}

QColor Theme::onShelf(const QColor &color) const {
    if (m_shelf.alpha() == 255 && !m_highContrast) {
        return color;
    }
    const QColor white = Qt::white;
    const QColor brightest = mixed(mixed(white, m_shelf, m_shelf.alphaF()), white, hoverPlate);
    const double wanted = m_highContrast ? minHighContrast : minContrast;
    QColor lightened = color;
    for (int step = 1; contrast(lightened, brightest) < wanted && step <= 20; ++step) {
        lightened = mixed(color, white, float(step) / 20);
    }
    return lightened;
}

QPalette Theme::palette(const QColor &accent) {
    const QColor button(44, 46, 50);
    QPalette palette(button, floating());
    palette.setColor(QPalette::Base, window());
    palette.setColor(QPalette::AlternateBase, floating());
    palette.setColor(QPalette::ToolTipBase, button);
    palette.setColor(QPalette::ToolTipText, text());
    palette.setColor(QPalette::Highlight, accent.darker(220));
    palette.setColor(QPalette::HighlightedText, text());
    palette.setColor(QPalette::PlaceholderText, plainGrey);
    palette.setColor(QPalette::Link, accent);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text());
        palette.setColor(QPalette::Disabled, role, QColor(110, 110, 115));
    }
    return palette;
}

QString Theme::shadow(int radius, int spread) {
    return QStringLiteral("image://shadows/%1/%2").arg(radius).arg(spread);
}

QColor Theme::accentColor(const QString &name) {
    static const QHash<QString, QColor> colors{{QStringLiteral("Blue"), blue()},
                                               {QStringLiteral("Purple"), purple()},
                                               {QStringLiteral("Orange"), orange()}};
    return colors.value(name, mint());
}

QColor Theme::backgroundColor(const QString &name, double opacity) {
    static const QHash<QString, QColor> colors{
        {QStringLiteral("Graphite"), QColor::fromRgbF(0.14F, 0.14F, 0.14F)},
        {QStringLiteral("Ocean"), QColor::fromRgbF(0.02F, 0.08F, 0.14F)}};
    const QColor color = colors.value(name, QColor::fromRgbF(0.025F, 0.028F, 0.033F));
    const double alpha = opacity + (1 - opacity) * scrimOpacity;
    QColor shown = mixed(Qt::black, color, float(opacity / alpha));
    shown.setAlphaF(float(alpha));
    return shown;
}

double Theme::digitWidth(const QFont &font) {
    const QFontMetricsF metrics(font);
    double widest = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
        widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
    }
    return widest;
}

} // namespace perchly
