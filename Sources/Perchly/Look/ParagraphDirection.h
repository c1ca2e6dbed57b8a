#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickTextDocument>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// Gives each paragraph of an editor the direction of its own script; by default all have that of
/// the first paragraph. Main thread only.
class ParagraphDirection : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// The editor's document, which the editor owns.
    Q_PROPERTY(QQuickTextDocument *document MEMBER m_document FINAL)
public:
    using QObject::QObject;

    /// Call it after each change of the text, since the editor then resets the direction.
    Q_INVOKABLE void apply();

private:
    QPointer<QQuickTextDocument> m_document;
};

} // namespace perchly
