#pragma once

#include "Snippet.h"

#include <QList>
#include <QObject>
#include <QString>

namespace perchly {

/// The extras store: which section the workspace window shows, the pinned snippets, and the battery
/// line. Made on first use. Main thread only.
class ShelfExtras : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString section READ section WRITE setSection NOTIFY sectionChanged FINAL)
    Q_PROPERTY(QString firstEventTitle READ firstEventTitle NOTIFY firstEventTitleChanged FINAL)
    Q_PROPERTY(QList<perchly::Snippet> snippets READ snippets NOTIFY snippetsChanged FINAL)
    Q_PROPERTY(QString battery READ battery NOTIFY batteryChanged FINAL)
public:
    using QObject::QObject;

    /// The selected section of the workspace window, by its title.
    [[nodiscard]] QString section() const { return m_section; }
    void setSection(const QString &section);

    /// Pinned texts, oldest first, no two equal.
    [[nodiscard]] const QList<Snippet> &snippets() const { return m_snippets; }
    /// Adds a text as it is. An empty one, and one that is pinned already, changes nothing.
    Q_INVOKABLE void pin(const QString &text);

    /// Title of the first of the upcoming events; empty without one.
    [[nodiscard]] QString firstEventTitle() const { return m_firstEventTitle; }

    /// One line on the battery.
    [[nodiscard]] QString battery() const { return m_battery; }

Q_SIGNALS:
    void sectionChanged();
    void snippetsChanged();
    void firstEventTitleChanged();
    void batteryChanged();

private:
    QString m_section = QStringLiteral("Search");
    QList<Snippet> m_snippets;
    QString m_firstEventTitle;
    QString m_battery = QStringLiteral("Checking battery…");
};

} // namespace perchly
