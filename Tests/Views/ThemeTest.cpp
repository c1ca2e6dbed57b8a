#include "Theme.h"

#include <QQmlEngine>
#include <QTest>

#include <cmath>
#include <memory>

namespace perchly {

namespace {

QColor over(const QColor &top, const QColor &bottom) {
    const auto mix = [&](float a, float b) { return std::lerp(b, a, top.alphaF()); };
    return QColor::fromRgbF(mix(top.redF(), bottom.redF()), mix(top.greenF(), bottom.greenF()),
                            mix(top.blueF(), bottom.blueF()));
}

double luminance(const QColor &color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

} // namespace

class ThemeTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void textsOnATranslucentShelfAreReadable() {
        QQmlEngine engine;
        const std::unique_ptr<Theme> theme(Theme::create(&engine, nullptr));
        for (const char *background : {"Midnight", "Graphite", "Ocean"}) {
            for (const char *accent : {"Mint", "Blue", "Purple", "Orange"}) {
                for (const double opacity : {0.65, 0.8, 0.99}) {
                    theme->setAccent(Theme::accentColor(QString::fromLatin1(accent)));
                    theme->setShelf(
                        Theme::backgroundColor(QString::fromLatin1(background), opacity));
                    const QColor card = over(Theme::card(), over(theme->shelf(), Qt::white));
                    for (const QColor &text : {Theme::text(), theme->shelfGrey(),
                                               theme->shelfAccent(), theme->shelfOrange()}) {
                        const double contrast = (luminance(text) + 0.05) / (luminance(card) + 0.05);
                        QVERIFY2(contrast >= 4.5, qPrintable(text.name() + card.name()));
                    }
                }
            }
        }
        theme->setShelf(Theme::backgroundColor(QStringLiteral("Graphite")));
        QCOMPARE(theme->shelfOrange(), Theme::orange());
    }
};

} // namespace perchly

QTEST_MAIN(perchly::ThemeTest)

#include "ThemeTest.moc"
