#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>

namespace perchly {

/// The workspace store: what the person holds at hand and what its tools report. Optional strings
/// are null when absent. Nothing here outlives the run. Main thread only.
class Productivity : public QObject {
    Q_OBJECT
    Q_PROPERTY(QList<QUrl> held READ held NOTIFY heldChanged FINAL)
    Q_PROPERTY(QString busyShortcut READ busyShortcut NOTIFY busyShortcutChanged FINAL)
    Q_PROPERTY(QString message READ message WRITE setMessage NOTIFY messageChanged FINAL)
public:
    using QObject::QObject;

    /// The tray: files, folders and web links, oldest first, no two equal.
    [[nodiscard]] const QList<QUrl> &held() const { return m_held; }
    /// Adds what is not held yet. Of the URLs that are not files, only those whose scheme is
    /// exactly "http" or "https" are taken; the others are passed over silently.
    Q_INVOKABLE void hold(const QList<QUrl> &urls);

    /// Name of the shortcut that is running; absent when none is.
    [[nodiscard]] QString busyShortcut() const { return m_busyShortcut; }

    /// The last notice to the person; stays until dismissed or replaced.
    [[nodiscard]] QString message() const { return m_message; }
    void setMessage(const QString &message);

Q_SIGNALS:
    void heldChanged();
    void busyShortcutChanged();
    void messageChanged();

private:
    QList<QUrl> m_held;
    QString m_busyShortcut;
    QString m_message;
};

} // namespace perchly
