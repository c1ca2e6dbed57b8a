#pragma once

#include <QObject>
#include <QPainterPath>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// Every symbol that the program shows, by name. Each is a ligature glyph of a font built into the
/// program. The font is loaded when its family is first needed. Main thread only.
class SymbolTable : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QString family READ family CONSTANT FINAL)
public:
    using QObject::QObject;

    [[nodiscard]] static const QStringList &names();

    /// The text that the font renders as the symbol's glyph. Empty, with a warning, for an unknown
    /// name.
    Q_INVOKABLE [[nodiscard]] static QString glyphText(const QString &name);

    /// The font's family name.
    [[nodiscard]] static QString family();

    /// The symbol's outline in a unit square, y down; empty for an unknown name.
    [[nodiscard]] static QPainterPath outline(const QString &name);
};

} // namespace perchly
