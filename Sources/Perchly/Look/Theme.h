#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace perchly {

/// Shared by all views: colours, the typeface, whether motion is reduced,
/// and whether keys are used. One for each QML
/// engine.
class Theme : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QString family READ family CONSTANT FINAL)
    Q_PROPERTY(
        bool reduceMotion READ reduceMotion WRITE setReduceMotion NOTIFY reduceMotionChanged FINAL)
    Q_PROPERTY(bool keysUsed READ keysUsed NOTIFY keysUsedChanged FINAL)
    Q_PROPERTY(QColor accent READ accent WRITE setAccent NOTIFY accentChanged FINAL)
    Q_PROPERTY(QColor mint READ mint CONSTANT FINAL)
    Q_PROPERTY(QColor blue READ blue CONSTANT FINAL)
    Q_PROPERTY(QColor purple READ purple CONSTANT FINAL)
    Q_PROPERTY(QColor orange READ orange CONSTANT FINAL)
    Q_PROPERTY(QColor pink READ pink CONSTANT FINAL)
    Q_PROPERTY(QColor yellow READ yellow CONSTANT FINAL)
    Q_PROPERTY(QColor green READ green CONSTANT FINAL)
    Q_PROPERTY(QColor cyan READ cyan CONSTANT FINAL)
    Q_PROPERTY(QColor grey READ grey NOTIFY contrastChanged FINAL)
    Q_PROPERTY(QColor text READ text CONSTANT FINAL)
    Q_PROPERTY(QColor card READ card CONSTANT FINAL)
    Q_PROPERTY(QColor floating READ floating CONSTANT FINAL)
    Q_PROPERTY(QColor window READ window CONSTANT FINAL)
    Q_PROPERTY(QColor row READ row CONSTANT FINAL)
    Q_PROPERTY(QColor line READ line NOTIFY contrastChanged FINAL)
    Q_PROPERTY(
        bool highContrast READ highContrast WRITE setHighContrast NOTIFY contrastChanged FINAL)
    Q_PROPERTY(bool menuOpen MEMBER m_menuOpen NOTIFY menuOpenChanged FINAL)
    Q_PROPERTY(QString iconTheme MEMBER m_iconTheme NOTIFY iconThemeChanged FINAL)
    Q_PROPERTY(QColor shelf READ shelf WRITE setShelf NOTIFY shelfChanged FINAL)
    Q_PROPERTY(QColor shelfGrey READ shelfGrey NOTIFY shelfChanged FINAL)
    Q_PROPERTY(QColor shelfAccent READ shelfAccent NOTIFY shelfChanged FINAL)
    Q_PROPERTY(QColor shelfOrange READ shelfOrange NOTIFY shelfChanged FINAL)
public:
    /// Also gives the engine ShadowPictures.
    static Theme *create(QQmlEngine *qmlEngine, QJSEngine *jsEngine);

    /// Inter if it is installed, else the desktop's typeface.
    [[nodiscard]] static QString family();

    /// The desktop's setting; each root view keeps it up to date.
    [[nodiscard]] bool reduceMotion() const { return m_reduceMotion; }
    void setReduceMotion(bool reduce);

    /// Whether the last press was a key without Ctrl, Alt or Super, rather than a mouse button.
    [[nodiscard]] bool keysUsed() const { return m_keysUsed; }

    /// The user's accent colour; the shelf's view keeps it up to date for all windows and
    /// dialogs.
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
    [[nodiscard]] static QColor text() { return QColor(Qt::white); }
    /// The cards on the shelf's background.
    [[nodiscard]] static QColor card() { return QColor::fromRgbF(1, 1, 1, 0.045F); }
    /// Everything above them: popovers, alerts, tooltips.
    [[nodiscard]] static QColor floating() { return QColor::fromRgbF(0.075F, 0.08F, 0.09F); }
    /// The background of ordinary windows.
    [[nodiscard]] static QColor window() { return QColor::fromRgbF(0.045F, 0.05F, 0.06F); }
    /// The rows and groups on it.
    [[nodiscard]] static QColor row() { return QColor::fromRgbF(1, 1, 1, 0.05F); }
    /// Quieter texts and symbols.
    [[nodiscard]] QColor grey() const;
    /// Hairlines and the outlines of fields.
    [[nodiscard]] QColor line() const;

    /// The desktop's settings; the shelf's view keeps them up to date.
    [[nodiscard]] bool highContrast() const { return m_highContrast; }
    void setHighContrast(bool high);

    /// The shelf's background; its view keeps it up to date.
    [[nodiscard]] QColor shelf() const { return m_shelf; }
    void setShelf(const QColor &shelf);

    /// The colours of texts on the shelf. If its background is translucent, they are lightened to a
    /// contrast of 4.5:1 over any desktop.
    [[nodiscard]] QColor shelfGrey() const { return onShelf(grey()); }
    [[nodiscard]] QColor shelfAccent() const { return onShelf(m_accent); }
    [[nodiscard]] QColor shelfOrange() const { return onShelf(orange()); }

    /// These colours for Qt's own widgets, such as dialogs.
    [[nodiscard]] static QPalette palette(const QColor &accent = mint());

    /// The URL of SoftShadow's picture for that radius and spread, in pixels.
    Q_INVOKABLE [[nodiscard]] static QString shadow(int radius, int spread);

    /// The accent stored under that name; mint for any other name.
    Q_INVOKABLE [[nodiscard]] static QColor accentColor(const QString &name);
    /// The background stored under that name; near-black for any other name. A scrim below a
    /// translucent one halves the brightness of what shines through.
    Q_INVOKABLE [[nodiscard]] static QColor backgroundColor(const QString &name,
                                                            double opacity = 1);

    /// Width of the font's widest digit, for numbers that change in place.
    Q_INVOKABLE [[nodiscard]] static double digitWidth(const QFont &font);

Q_SIGNALS:
    void reduceMotionChanged();
    void keysUsedChanged();
    void accentChanged();
    void contrastChanged();
    void menuOpenChanged();
    void iconThemeChanged();
    void shelfChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Theme();
    [[nodiscard]] QColor onShelf(const QColor &color) const;

    bool m_reduceMotion = false;
    bool m_keysUsed = false;
    bool m_highContrast = false;
    bool m_menuOpen = false; ///< on the shelf; no tooltip appears meanwhile
    QColor m_accent = mint();
    QColor m_shelf = Qt::black;
    QString m_iconTheme;
};

} // namespace perchly
