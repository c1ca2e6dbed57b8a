#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace perchly {

/// Shared by all views: colours, the typeface, and whether motion is reduced. One for each QML
/// engine.
class Theme : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QString family READ family CONSTANT FINAL)
    Q_PROPERTY(
        bool reduceMotion READ reduceMotion WRITE setReduceMotion NOTIFY reduceMotionChanged FINAL)
    Q_PROPERTY(QColor accent READ accent WRITE setAccent NOTIFY accentChanged FINAL)
    Q_PROPERTY(QColor mint READ mint CONSTANT FINAL)
    Q_PROPERTY(QColor blue READ blue CONSTANT FINAL)
    Q_PROPERTY(QColor purple READ purple CONSTANT FINAL)
    Q_PROPERTY(QColor orange READ orange CONSTANT FINAL)
    Q_PROPERTY(QColor pink READ pink CONSTANT FINAL)
    Q_PROPERTY(QColor yellow READ yellow CONSTANT FINAL)
    Q_PROPERTY(QColor green READ green CONSTANT FINAL)
    Q_PROPERTY(QColor cyan READ cyan CONSTANT FINAL)
    Q_PROPERTY(QColor grey READ grey CONSTANT FINAL)
    Q_PROPERTY(QColor text READ text CONSTANT FINAL)
    Q_PROPERTY(QColor card READ card CONSTANT FINAL)
    Q_PROPERTY(QColor floating READ floating CONSTANT FINAL)
    Q_PROPERTY(QColor window READ window CONSTANT FINAL)
    Q_PROPERTY(QColor row READ row CONSTANT FINAL)
    Q_PROPERTY(QColor line READ line CONSTANT FINAL)
public:
    /// Also gives the engine ShadowPictures.
    static Theme *create(QQmlEngine *qmlEngine, QJSEngine *jsEngine);

    /// Inter if it is installed, else the desktop's typeface.
    [[nodiscard]] static QString family();

    /// The desktop's setting; each root view keeps it up to date.
    [[nodiscard]] bool reduceMotion() const { return m_reduceMotion; }
    void setReduceMotion(bool reduce);

    /// The user's accent colour; the shelf's view keeps it up to date for all windows.
    [[nodiscard]] QColor accent() const { return m_accent; }
    void setAccent(const QColor &accent);

    [[nodiscard]] static QColor mint() { return QColor(102, 212, 207); }
    [[nodiscard]] static QColor blue() { return QColor(10, 132, 255); }
    [[nodiscard]] static QColor purple() { return QColor(191, 90, 242); }
    [[nodiscard]] static QColor orange() { return QColor(255, 159, 10); }
    [[nodiscard]] static QColor pink() { return QColor(255, 55, 95); }
    [[nodiscard]] static QColor yellow() { return QColor(255, 214, 10); }
    [[nodiscard]] static QColor green() { return QColor(48, 209, 88); }
    [[nodiscard]] static QColor cyan() { return QColor(100, 210, 255); }
    [[nodiscard]] static QColor grey() { return QColor(152, 152, 157); }
    [[nodiscard]] static QColor text() { return QColor(Qt::white); }
    /// The cards on the shelf's background.
    [[nodiscard]] static QColor card() { return QColor::fromRgbF(1, 1, 1, 0.045F); }
    /// Everything above them: popovers, alerts, tooltips.
    [[nodiscard]] static QColor floating() { return QColor::fromRgbF(0.075F, 0.08F, 0.09F); }
    /// The background of ordinary windows.
    [[nodiscard]] static QColor window() { return QColor::fromRgbF(0.045F, 0.05F, 0.06F); }
    /// The rows and groups on it.
    [[nodiscard]] static QColor row() { return QColor::fromRgbF(1, 1, 1, 0.05F); }
    /// Hairlines and the outlines of fields.
    [[nodiscard]] static QColor line() { return QColor::fromRgbF(1, 1, 1, 0.12F); }

    /// These colours for Qt's own widgets, such as dialogs.
    [[nodiscard]] static QPalette palette();

    /// The URL of SoftShadow's picture for that radius and spread, in pixels.
    Q_INVOKABLE [[nodiscard]] static QString shadow(int radius, int spread);

    /// The accent stored under that name; mint for any other name.
    Q_INVOKABLE [[nodiscard]] static QColor accentColor(const QString &name);
    /// The background stored under that name, opaque; near-black for any other name.
    Q_INVOKABLE [[nodiscard]] static QColor backgroundColor(const QString &name);

    /// Width of the font's widest digit, for numbers that change in place.
    Q_INVOKABLE [[nodiscard]] static double digitWidth(const QFont &font);

Q_SIGNALS:
    void reduceMotionChanged();
    void accentChanged();

private:
    Theme() = default;

    bool m_reduceMotion = false;
    QColor m_accent = mint();
};

} // namespace perchly
