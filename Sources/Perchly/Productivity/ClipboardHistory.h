#pragma once

#include "Clock.h"
#include "KeyedRows.h"
#include "Notice.h"

#include <QByteArray>
#include <QThreadPool>
#include <QUrl>
#include <QUuid>

namespace perchly {

class Pasteboard;
struct PasteboardContent;

/// One entry of the clipboard history: a text or a picture. C++ copies share their data.
struct Clip {
    QUuid id = QUuid::createUuid();
    QString text = {};
    QByteArray image = {}; ///< PNG or TIFF, as it was copied; empty for a text

    [[nodiscard]] static Clip ofText(const QString &text) { return {.text = text}; }
    [[nodiscard]] static Clip ofImage(const QByteArray &image) { return {.image = image}; }

    /// What lists show and searches look through.
    [[nodiscard]] QString label() const {
        return isImage() ? QStringLiteral("Copied image") : text;
    }
    [[nodiscard]] bool isImage() const { return !image.isEmpty(); }
};

/// The copies of this session, if the user enabled that, and the writes to the clipboard. As
/// rows, the clips that match the search: "id", "label", cut to what can be shown, "isBlank" if
/// there is nothing to see in it, "isImage" and "text". Main thread only.
class ClipboardHistory : public perchly::KeyedRows {
    Q_OBJECT
    Q_PROPERTY(bool enabled READ enabled WRITE setEnabled NOTIFY enabledChanged FINAL)
    Q_PROPERTY(bool paused READ paused WRITE setPaused NOTIFY pausedChanged FINAL)
    Q_PROPERTY(QString search MEMBER m_search NOTIFY searchChanged FINAL)
public:
    /// Starts watching the clipboard. Its present content is never recorded.
    ClipboardHistory(Pasteboard &pasteboard, Clock &clock, Notice notice,
                     QObject *parent = nullptr);

    /// Newest first, at most 30.
    [[nodiscard]] const QList<Clip> &clips() const { return m_clips; }
    void setClips(const QList<Clip> &clips);
    /// Whether copies are recorded in this session. A copy made before that, or while paused, is
    /// never recorded.
    [[nodiscard]] bool enabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    [[nodiscard]] bool paused() const { return m_paused; }
    void setPaused(bool paused);

    /// These write to the clipboard without recording it again.
    Q_INVOKABLE void copyText(const QString &text) { copy(Clip::ofText(text)); }
    Q_INVOKABLE void copyClip(const QUuid &id);
    /// Copies the files and links themselves, as a file manager does; programs that take texts get
    /// what copyPath() copies, one on each line.
    Q_INVOKABLE void copyItems(const QList<QUrl> &urls);
    /// Copies a file's path, or a link, as text.
    Q_INVOKABLE void copyPath(const QUrl &url);
    /// Copies the picture in a file, read in the background; anything else as copyPath().
    Q_INVOKABLE void copyImage(const QUrl &url);

    Q_INVOKABLE void remove(const QUuid &id);
    /// Also forgets a copy that is being read.
    Q_INVOKABLE void clear();

Q_SIGNALS:
    void clipsChanged();
    void enabledChanged();
    void pausedChanged();
    void searchChanged();

private:
    [[nodiscard]] Rows matches() const;
    void watch();
    void skipPresentCopy();
    void read(std::function<void(const PasteboardContent &)> use);
    void record(const PasteboardContent &content);
    void copy(const Clip &clip);
    void finishCopy();

    Pasteboard &m_pasteboard;
    Clock &m_clock;
    Notice m_notice;
    QList<Clip> m_clips;
    QString m_search;
    bool m_enabled = false;
    bool m_paused = false;
    qint64 m_count;       ///< the change count seen last, or of a copy of our own
    int m_copyNumber = 0; ///< of the last copy that was asked for
    Task m_timer;         ///< until the clipboard may be looked at again
    Task m_reading;
    QThreadPool m_pool; ///< destroyed first: it waits for the threads
};

} // namespace perchly
