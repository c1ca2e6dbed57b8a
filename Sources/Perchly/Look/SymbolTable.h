#pragma once

#include <QObject>
#include <QPainterPath>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// Every symbol that the program shows, by name. Each is one glyph of a font that is part of the
/// program, reached by a ligature. The font is loaded when its family is first asked for. Main
/// thread only.
class SymbolTable : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QString family READ family CONSTANT FINAL)
public:
    using QObject::QObject;

    [[nodiscard]] static const QStringList &names();

    /// The text that the font turns into the symbol's glyph. Empty for an unknown name, which is
    /// also reported as a warning.
    Q_INVOKABLE [[nodiscard]] static QString glyphText(const QString &name);

    /// The font's family name.
    [[nodiscard]] static QString family();

    /// The symbol's outline in a square of side 1 with y growing downwards; empty for an unknown
    /// name.
    [[nodiscard]] static QPainterPath outline(const QString &name);
};

} // namespace perchly
