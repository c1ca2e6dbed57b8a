#pragma once

#include "ClipboardHistory.h"
#include "HeldFiles.h"
#include "SavedLayouts.h"
#include "Shortcuts.h"

#include <QVariantList>

namespace perchly {

class FilePictures;
struct Hosts;

/// The workspace: its stores, its last message, and the actions on a file or link. Only the layouts
/// outlive the run. Main thread only.
class Productivity : public QObject {
    Q_OBJECT
    Q_PROPERTY(perchly::HeldFiles *held READ held CONSTANT FINAL)
    Q_PROPERTY(perchly::ClipboardHistory *clipboard READ clipboard CONSTANT FINAL)
    Q_PROPERTY(perchly::Shortcuts *shortcuts READ shortcuts CONSTANT FINAL)
    Q_PROPERTY(perchly::SavedLayouts *layouts READ layouts CONSTANT FINAL)
    Q_PROPERTY(QString message READ message WRITE setMessage NOTIFY messageChanged FINAL)
public:
    /// The arguments must outlive this object.
    Productivity(Hosts &hosts, ShelfLibrary &library, ShelfModel &model, QObject *parent = nullptr);

    [[nodiscard]] HeldFiles *held() { return &m_held; }
    [[nodiscard]] ClipboardHistory *clipboard() { return &m_clipboard; }
    [[nodiscard]] Shortcuts *shortcuts() { return &m_shortcuts; }
    [[nodiscard]] SavedLayouts *layouts() { return &m_layouts; }

    /// The last notice to the user, kept until it is dismissed or replaced.
    [[nodiscard]] QString message() const { return m_message; }
    void setMessage(const QString &message);
    Q_INVOKABLE void dismissMessage() { setMessage({}); }
    [[nodiscard]] Notice notice();
    /// The same for a failure, which is announced, too.
    [[nodiscard]] Notice failureNotice(const QString &title = tr("Command failed"));
    /// For confirmations: the message goes after three seconds.
    [[nodiscard]] Notice briefNotice();

    [[nodiscard]] FilePictures &filePictures();

    // A failure of one of these becomes the message.

    Q_INVOKABLE void open(const QUrl &url);
    /// Launches the application with that desktop entry and name.
    Q_INVOKABLE void openApplication(const QString &path, const QString &name);
    Q_INVOKABLE void reveal(const QUrl &url);
    /// Answered by shareTargetsFound().
    Q_INVOKABLE void findShareTargets(const QUrl &url);
    Q_INVOKABLE void share(const QUrl &url, const QString &targetId);

Q_SIGNALS:
    void messageChanged();
    /// Something could not be opened, revealed, shared or saved; the message says why.
    void failed(const QString &title);
    /// Each target as {"id": …, "name": …}.
    void shareTargetsFound(const QUrl &url, const QVariantList &targets);

private:
    Hosts &m_hosts;
    QString m_message;
    Task m_dismissal;
    HeldFiles m_held;
    ClipboardHistory m_clipboard;
    Shortcuts m_shortcuts;
    SavedLayouts m_layouts;
};

} // namespace perchly
