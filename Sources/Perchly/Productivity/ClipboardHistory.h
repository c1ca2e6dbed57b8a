#pragma once

#include "Clock.h"
#include "KeyedRows.h"
#include "Notice.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QUrl>
#include <QUuid>

namespace perchly {

class Pasteboard;
class PictureReader;
struct PasteboardContent;

/// One entry of the clipboard history: a text or a picture. C++ copies share their data.
struct Clip {
    QUuid id = QUuid::createUuid();
    QString text = {};
    QByteArray image = {}; ///< PNG or TIFF, as copied; empty for a text

    [[nodiscard]] static Clip ofText(const QString &text) { return {.text = text}; }
    [[nodiscard]] static Clip ofImage(const QByteArray &image) { return {.image = image}; }

    /// The text that lists show and searches use.
    [[nodiscard]] QString label() const {
        return isImage() ? QCoreApplication::translate("ClipboardHistory", "Copied image") : text;
    }
    [[nodiscard]] bool isImage() const { return !image.isEmpty(); }
};

/// The copies of this session, if the user enabled the history. Also writes to the clipboard. The
/// rows are the clips that match the search: "id", "label", cut to the shown part, "isBlank" if
/// nothing in it is visible, "isImage" and "text". Main thread only.
class ClipboardHistory : public perchly::KeyedRows {
    Q_OBJECT
    Q_PROPERTY(bool enabled READ enabled WRITE setEnabled NOTIFY enabledChanged FINAL)
    Q_PROPERTY(bool paused READ paused WRITE setPaused NOTIFY pausedChanged FINAL)
    Q_PROPERTY(QString search MEMBER m_search NOTIFY searchChanged FINAL)
public:
    /// Starts watching the clipboard. Its current content is never recorded.
    ClipboardHistory(Pasteboard &pasteboard, PictureReader &pictures, Clock &clock, Notice notice,
                     QObject *parent = nullptr);

    /// Newest first, at most 30.
    [[nodiscard]] const QList<Clip> &clips() const { return m_clips; }
    void setClips(const QList<Clip> &clips);
    /// Whether copies are recorded in this session. Copies made before that, or while paused, are
    /// never recorded.
    [[nodiscard]] bool enabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    [[nodiscard]] bool paused() const { return m_paused; }
    void setPaused(bool paused);

    /// These write to the clipboard without recording the copy again.
    Q_INVOKABLE void copyText(const QString &text) { copy(Clip::ofText(text)); }
    Q_INVOKABLE void copyClip(const QUuid &id);
    /// Copies the files and links themselves, as a file manager does; programs that take text get
    /// the text of copyPath(), one item per line.
    Q_INVOKABLE void copyItems(const QList<QUrl> &urls);
    /// Copies a file's path, or a link, as text.
    Q_INVOKABLE void copyPath(const QUrl &url);
    /// Copies a file's picture, read in the background; anything else like copyPath().
    Q_INVOKABLE void copyImage(const QUrl &url);

    Q_INVOKABLE void remove(const QUuid &id);
    /// Also drops a copy that is being read.
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
    PictureReader &m_pictures;
    Clock &m_clock;
    Notice m_notice;
    QList<Clip> m_clips;
    QString m_search;
    bool m_enabled = false;
    bool m_paused = false;
    qint64 m_count; ///< the last change count seen, or that of our own copy
    Task m_timer;   ///< runs until the clipboard may be checked again
    Task m_reading;
    Task m_decoding; ///< of the picture to copy
};

} // namespace perchly
