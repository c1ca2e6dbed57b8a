#pragma once

#include "Clip.h"
#include "Clock.h"
#include "FileServices.h"
#include "SavedLayout.h"
#include "ShelfLibrary.h"
#include "ShelfModel.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QThreadPool>
#include <QUrl>

#include <functional>
#include <map>

namespace perchly {

struct Hosts;
struct PasteboardContent;

/// The workspace store: files and links held at hand, the clipboard history, the person's shortcuts
/// and saved layouts. Only the layouts outlive the run. Every change of a field is announced.
/// Optional strings are null when absent. Main thread only.
class Productivity : public QObject {
    Q_OBJECT
    Q_PROPERTY(QList<QUrl> held READ held NOTIFY heldChanged FINAL)
    Q_PROPERTY(QList<perchly::Clip> clips READ clips NOTIFY clipsChanged FINAL)
    Q_PROPERTY(bool clipboardEnabled READ clipboardEnabled WRITE setClipboardEnabled NOTIFY
                   clipboardEnabledChanged FINAL)
    Q_PROPERTY(bool paused READ paused WRITE setPaused NOTIFY pausedChanged FINAL)
    Q_PROPERTY(QStringList shortcuts READ shortcuts NOTIFY shortcutsChanged FINAL)
    Q_PROPERTY(QString busyShortcut READ busyShortcut NOTIFY busyShortcutChanged FINAL)
    Q_PROPERTY(QString shortcutsFolder READ shortcutsFolder CONSTANT FINAL)
    Q_PROPERTY(QList<perchly::SavedLayout> layouts READ layouts NOTIFY layoutsChanged FINAL)
    Q_PROPERTY(QString message READ message WRITE setMessage NOTIFY messageChanged FINAL)
public:
    /// Loads the layouts and starts watching the clipboard, whose present content is never
    /// recorded. The hosts must outlive the store.
    explicit Productivity(Hosts &hosts, QObject *parent = nullptr);
    ~Productivity() override;

    /// The last notice to the person; stays until dismissed or replaced.
    [[nodiscard]] QString message() const { return m_message; }
    void setMessage(const QString &message);
    Q_INVOKABLE void dismissMessage() { setMessage({}); }

    // Held files and links (HeldFiles.cpp)

    /// The tray: files, folders and web links, oldest first, no two equal.
    [[nodiscard]] const QList<QUrl> &held() const { return m_held; }
    void setHeld(const QList<QUrl> &held);
    /// Adds what is not held yet. Of the URLs that are not files, only those whose scheme is
    /// exactly "http" or "https" are taken; the others, and files of other machines, are passed
    /// over silently.
    Q_INVOKABLE void hold(const QList<QUrl> &urls);
    /// The same for a dropped "text/uri-list". As it says how each scheme was written, which a QUrl
    /// does not, links in capitals are passed over, too. False, and nothing happens, if it lists
    /// nothing at all.
    Q_INVOKABLE bool holdDropped(const QString &uriList);
    /// Asks for files and folders and holds what was chosen. Another call while the person is
    /// choosing does nothing.
    Q_INVOKABLE void addFiles();
    /// Holds a web link as it was typed; false, and nothing happens, if it is none.
    Q_INVOKABLE bool addLink(const QString &text);
    Q_INVOKABLE void removeHeld(const QUrl &url);
    Q_INVOKABLE void clearHeld() { setHeld({}); }
    /// Copies the files and links themselves, as a file manager does; programs that take texts get
    /// what copyPath() copies, one in a line.
    Q_INVOKABLE void copyItems(const QList<QUrl> &urls);
    /// Copies a file's path, or a link, as text.
    Q_INVOKABLE void copyPath(const QUrl &url);
    /// Copies the picture in a file; what turns out to be none is copied as by copyPath(). The file
    /// is read in the background.
    Q_INVOKABLE void copyImage(const QUrl &url);
    /// The last part of a file's path, or the whole link.
    [[nodiscard]] Q_INVOKABLE static QString labelOf(const QUrl &url);

    // What the desktop does with a held file (HeldFileServices.cpp). A failure becomes the message.

    Q_INVOKABLE void open(const QUrl &url);
    /// Launches the application of that desktop entry.
    Q_INVOKABLE void openApplication(const QString &path);
    Q_INVOKABLE void reveal(const QUrl &url);
    /// Answered by shareTargetsFound().
    Q_INVOKABLE void findShareTargets(const QUrl &url);
    Q_INVOKABLE void share(const QUrl &url, const QString &targetId);

    // Clipboard history (ClipboardHistory.cpp)

    /// Newest first, at most 30.
    [[nodiscard]] const QList<Clip> &clips() const { return m_clips; }
    void setClips(const QList<Clip> &clips);
    /// Whether copies are recorded in this session. A copy that is there already never is, nor when
    /// paused() ends.
    [[nodiscard]] bool clipboardEnabled() const { return m_clipboardEnabled; }
    void setClipboardEnabled(bool enabled);
    [[nodiscard]] bool paused() const { return m_paused; }
    void setPaused(bool paused);
    /// The clipboard's change count that was seen last or came from a copy of our own.
    [[nodiscard]] qint64 pasteboardCount() const { return m_pasteboardCount; }
    /// Looks at the clipboard once. What it holds is read in the background, and recorded if
    /// recording was not switched off meanwhile. Called at every copy of another program, but not
    /// more often than each 0.8 seconds.
    void capture();
    /// Writes the entry to the clipboard without recording it again.
    void copy(const Clip &clip);
    Q_INVOKABLE void copyText(const QString &text) { copy(Clip::ofText(text)); }
    Q_INVOKABLE void copyClip(const QUuid &id);
    Q_INVOKABLE void removeClip(const QUuid &id);
    /// Also forgets a copy that is just being read.
    Q_INVOKABLE void clearClips();

    // Shortcuts (ShortcutsRunner.cpp)

    /// Names, as the tool listed them last.
    [[nodiscard]] const QStringList &shortcuts() const { return m_shortcuts; }
    /// Name of the shortcut that is running; absent when none is.
    [[nodiscard]] QString busyShortcut() const { return m_busyShortcut; }
    /// Lists them anew in the background; a failure becomes the message.
    Q_INVOKABLE void refreshShortcuts();
    /// Runs one and reports its end as the message. Nothing happens while another runs.
    Q_INVOKABLE void runShortcut(const QString &name);
    /// Ends the shortcut that is running and what it has started; its end is reported when it has
    /// come. Nothing happens when none is running.
    Q_INVOKABLE void stopShortcut();
    Q_INVOKABLE void addToShelf(const QString &name, perchly::ShelfLibrary *library);
    /// Where the shortcuts are, with "~" for the person's home.
    [[nodiscard]] QString shortcutsFolder() const;
    /// Shows that folder in the file manager, and makes it first if there is none.
    Q_INVOKABLE void openShortcutsFolder();

    // Saved layouts (SavedLayouts.cpp)

    /// Oldest first. Every assignment is stored, or ignored if it is too large.
    [[nodiscard]] const QList<SavedLayout> &layouts() const { return m_layouts; }
    void setLayouts(const QList<SavedLayout> &layouts);
    /// Saves the present setup under the name, trimmed; a blank name does nothing.
    Q_INVOKABLE void saveLayout(const QString &name, perchly::ShelfLibrary *library,
                                perchly::ShelfModel *model);
    /// Restores a setup. Unknown widgets become the clock on the left and the timer on the right.
    void apply(const SavedLayout &layout, ShelfLibrary &library, ShelfModel &model);
    /// The same for the layout of that identifier, if there is one.
    Q_INVOKABLE void applyLayout(const QUuid &id, perchly::ShelfLibrary *library,
                                 perchly::ShelfModel *model);
    Q_INVOKABLE void removeLayout(const QUuid &id);

Q_SIGNALS:
    void heldChanged();
    void clipsChanged();
    void clipboardEnabledChanged();
    void pausedChanged();
    void shortcutsChanged();
    void busyShortcutChanged();
    void layoutsChanged();
    void messageChanged();
    /// Each target as {"id": …, "name": …}.
    void shareTargetsFound(const QUrl &url, const QVariantList &targets);

private:
    [[nodiscard]] FileServices::Completion reportFailure(const QString &doing, const QUrl &url);
    void watchPasteboard();
    void skipPresentCopy();
    void readCopy(std::function<void(const PasteboardContent &)> use);
    void record(const PasteboardContent &content);
    void finishCopy();
    void loadLayouts();

    Hosts &m_hosts;
    QList<QUrl> m_held;
    QList<Clip> m_clips;
    bool m_clipboardEnabled = false;
    bool m_paused = false;
    QStringList m_shortcuts;
    QString m_busyShortcut;
    bool m_stopped = false; ///< the busy shortcut was asked to end
    QString m_message;
    QList<SavedLayout> m_layouts;
    qint64 m_pasteboardCount = 0;
    Task m_timer;   ///< until the clipboard may be looked at again
    Task m_capture; ///< a copy that is being read
    Task m_openPanel;
    Task m_shortcutRun;
    std::map<int, Task> m_refreshes; ///< of the list of shortcuts, by a number of their own
    int m_refreshNumber = 0;
    int m_copyNumber = 0; ///< of the last copy that was asked for
    QThreadPool m_pool;   ///< destroyed first: it waits for the threads
};

} // namespace perchly
