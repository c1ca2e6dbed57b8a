#pragma once

#include <QObject>
#include <QString>

namespace perchly {

/// The extras store: which section the workspace window shows, and the battery line. Made on first
/// use. Main thread only.
class ShelfExtras : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString section READ section WRITE setSection NOTIFY sectionChanged FINAL)
    Q_PROPERTY(QString battery READ battery NOTIFY batteryChanged FINAL)
public:
    using QObject::QObject;

    /// The selected section of the workspace window, by its title.
    [[nodiscard]] QString section() const { return m_section; }
    void setSection(const QString &section);

    /// One line on the battery.
    [[nodiscard]] QString battery() const { return m_battery; }

Q_SIGNALS:
    void sectionChanged();
    void batteryChanged();

private:
    QString m_section = QStringLiteral("Search");
    QString m_battery = QStringLiteral("Checking battery…");
};

} // namespace perchly
