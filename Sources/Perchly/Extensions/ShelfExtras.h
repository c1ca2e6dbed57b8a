#pragma once

#include "Clock.h"
#include "QuickLook.h"
#include "Snippet.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>

namespace perchly {

struct Hosts;
class Productivity;
class ShellActions;

/// The extras store: which section the workspace window shows, the pinned snippets, the battery
/// line, captures of the screen and previews. Made on first use. Main thread only.
class ShelfExtras : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString section READ section WRITE setSection NOTIFY sectionChanged FINAL)
    Q_PROPERTY(QString firstEventTitle READ firstEventTitle NOTIFY firstEventTitleChanged FINAL)
    Q_PROPERTY(QList<perchly::Snippet> snippets READ snippets NOTIFY snippetsChanged FINAL)
    Q_PROPERTY(QString battery READ battery NOTIFY batteryChanged FINAL)
    Q_PROPERTY(bool capturing READ capturing NOTIFY capturingChanged FINAL)
    Q_PROPERTY(QString error READ error NOTIFY errorChanged FINAL)
    Q_PROPERTY(QUrl previewUrl READ previewUrl NOTIFY previewUrlChanged FINAL)
public:
    /// Reads the battery now and every 30 seconds. The hosts and the shell must outlive the store;
    /// without a shell nothing is asked of it.
    explicit ShelfExtras(Hosts &hosts, ShellActions *shell = nullptr, QObject *parent = nullptr);

    /// The selected section of the workspace window, by its title.
    [[nodiscard]] QString section() const { return m_section; }
    void setSection(const QString &section);

    /// Pinned texts, oldest first, no two equal.
    [[nodiscard]] const QList<Snippet> &snippets() const { return m_snippets; }
    /// Adds a text as it is. An empty one, and one that is pinned already, changes nothing.
    Q_INVOKABLE void pin(const QString &text);

    /// Title of the first of the upcoming events; empty without one.
    [[nodiscard]] QString firstEventTitle() const { return m_firstEventTitle; }

    // Battery (Battery.cpp)

    /// One line on the battery.
    [[nodiscard]] QString battery() const { return m_battery; }
    Q_INVOKABLE void refreshBattery();

    // Captures of the screen (Capture.cpp)

    /// The person is choosing what to capture, or is about to.
    [[nodiscard]] bool capturing() const { return m_capturing; }
    /// Why the last capture failed; null if it did not.
    [[nodiscard]] QString error() const { return m_error; }
    /// Moves the program's windows out of the way, lets the person choose a part of the screen,
    /// holds its picture in the tray, and shows the workspace window on its files. Nothing happens
    /// while a capture is under way.
    Q_INVOKABLE void screenshot(perchly::Productivity *productivity);

    // Previews (Preview.cpp)

    /// What was previewed last; empty before that.
    [[nodiscard]] QUrl previewUrl() const { return m_previewUrl; }
    /// Shows a file or link in the preview's window, in front. From there the person may go on to
    /// the others of the list that it is one of.
    Q_INVOKABLE void preview(const QUrl &url, const QList<QUrl> &among = {});
    /// The same, but closes the preview if it shows that already.
    Q_INVOKABLE void togglePreview(const QUrl &url, const QList<QUrl> &among = {});

Q_SIGNALS:
    void sectionChanged();
    void snippetsChanged();
    void firstEventTitleChanged();
    void batteryChanged();
    void capturingChanged();
    void errorChanged();
    void previewUrlChanged();

private:
    void setBattery(const QString &battery);
    void endCapture(const QString &path, int status, Productivity *productivity);
    void setCapturing(bool capturing);
    void setError(const QString &error);
    void lookAt(const QUrl &url, const QList<QUrl> &among, QuickLook::Manner manner);

    Hosts &m_hosts;
    ShellActions *m_shell;
    QString m_section = QStringLiteral("Search");
    QList<Snippet> m_snippets;
    QString m_firstEventTitle;
    QString m_battery = QStringLiteral("Checking battery…");
    bool m_capturing = false;
    QString m_error;
    QUrl m_previewUrl;
    Task m_capture;
    Task m_poll;
};

} // namespace perchly
