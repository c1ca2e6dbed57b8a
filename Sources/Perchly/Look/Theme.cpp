#include "Theme.h"

#include "ShadowPictures.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QHash>
#include <QQmlEngine>

#include <algorithm>

namespace perchly {

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
    Q_EMIT accentChanged();
}

QPalette Theme::palette() {
    const QColor button(44, 46, 50);
    QPalette palette(button, floating());
    palette.setColor(QPalette::Base, window());
    palette.setColor(QPalette::AlternateBase, floating());
    palette.setColor(QPalette::ToolTipBase, button);
    palette.setColor(QPalette::ToolTipText, text());
    palette.setColor(QPalette::Highlight, mint().darker(220));
    palette.setColor(QPalette::HighlightedText, text());
    palette.setColor(QPalette::PlaceholderText, grey());
    palette.setColor(QPalette::Link, mint());
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

QColor Theme::backgroundColor(const QString &name) {
    static const QHash<QString, QColor> colors{
        {QStringLiteral("Graphite"), QColor::fromRgbF(0.14F, 0.14F, 0.14F)},
        {QStringLiteral("Ocean"), QColor::fromRgbF(0.02F, 0.08F, 0.14F)}};
    return colors.value(name, QColor::fromRgbF(0.025F, 0.028F, 0.033F));
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
