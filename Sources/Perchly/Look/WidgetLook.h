#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// Symbols and colours of the kinds of widgets, by title.
class WidgetLook : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QStringList titles READ titles CONSTANT FINAL)
public:
    using QObject::QObject;

    /// All titles, in the order of choosers.
    [[nodiscard]] static QStringList titles();
    /// The title in the user's language.
    Q_INVOKABLE [[nodiscard]] static QString name(const QString &title);
    /// The symbol's name; empty for any other text.
    Q_INVOKABLE [[nodiscard]] static QString symbol(const QString &title);
    /// The colour of its tile; transparent for any other text.
    Q_INVOKABLE [[nodiscard]] static QColor color(const QString &title);
};

} // namespace perchly
