#include "Announcements.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <QSet>

#include <utility>

namespace perchly {

Announcements::Announcements(const QObject &object) {
    const QMetaObject &meta = *object.metaObject();
    const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("note()"));
    QSet<int> connected;
    for (int index = 0; index < meta.propertyCount(); ++index) {
        const QMetaProperty property = meta.property(index);
        const int signal = property.notifySignalIndex();
        if (signal >= 0 && !connected.contains(signal)) {
            connected.insert(signal);
            connect(&object, property.notifySignal(), this, slot);
        }
    }
}

QStringList Announcements::take() {
    return std::exchange(m_names, {});
}

void Announcements::note() {
    const QMetaMethod signal = sender()->metaObject()->method(senderSignalIndex());
    m_names.append(QString::fromLatin1(signal.name()));
}

} // namespace perchly
