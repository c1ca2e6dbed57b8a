#pragma once

#include <QList>
#include <QObject>
#include <QPainterPath>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// Every symbol that the program draws, by name. Most are one glyph of a font that is part of the
/// program, reached by a ligature; the few that the font lacks are drawn. The font is loaded when
/// the first symbol is asked for. Main thread only.
class SymbolTable : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QString family READ family CONSTANT FINAL)
public:
    using QObject::QObject;

    /// The names, in the table's order.
    [[nodiscard]] static QList<QString> names();

    /// The text that the font turns into the symbol's glyph. Empty for a symbol that is drawn, and
    /// for an unknown name, which is also reported as a warning.
    Q_INVOKABLE [[nodiscard]] static QString glyphText(const QString &name);

    /// The font's family name.
    [[nodiscard]] static QString family();

    /// The symbol's outline in a square of side 1 with y growing downwards; empty for an unknown
    /// name.
    [[nodiscard]] static QPainterPath outline(const QString &name);
};

} // namespace perchly
