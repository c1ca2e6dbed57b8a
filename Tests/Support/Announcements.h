#pragma once

#include <QObject>
#include <QStringList>

namespace perchly {

/// Records which of an object's property-change signals were emitted, in order.
class Announcements : public QObject {
    Q_OBJECT
public:
    /// Listens from now on. The object must outlive the record.
    explicit Announcements(const QObject &object);

    /// The signals' names since the last call.
    [[nodiscard]] QStringList take();

private Q_SLOTS:
    void note();

private:
    QStringList m_names;
};

} // namespace perchly
