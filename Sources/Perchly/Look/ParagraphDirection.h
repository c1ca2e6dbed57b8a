#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickTextDocument>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// Lets each paragraph of an editor run as its own script does: the editor itself gives all of them
/// the direction of the first. Main thread only.
class ParagraphDirection : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// The editor's document, which the editor owns.
    Q_PROPERTY(QQuickTextDocument *document MEMBER m_document FINAL)
public:
    using QObject::QObject;

    /// Call it whenever the text has changed, since the editor then resets the direction.
    Q_INVOKABLE void apply();

private:
    QPointer<QQuickTextDocument> m_document;
};

} // namespace perchly
