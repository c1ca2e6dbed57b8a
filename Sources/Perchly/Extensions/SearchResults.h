#pragma once

#include "KeyedRows.h"

namespace perchly {

class ClipboardHistory;
class HeldFiles;
class Preferences;
class ShelfLibrary;
class Snippets;

/// All matches of a search in one list: installed applications, the quick note, copied texts and
/// pictures, pinned snippets, held files and links, each kind below its title. Row fields: "kind"
/// ("title", "app", "note", "clip", "snippet" or "held"), "label" (the whole note, or a text cut to
/// the shown part) and "target" (an application's path, a clip's id, a snippet's text, or a URL).
/// Main thread only.
class SearchResults : public perchly::KeyedRows {
    Q_OBJECT
    Q_PROPERTY(QString query MEMBER m_query NOTIFY queryChanged FINAL)
    Q_PROPERTY(bool editingNote MEMBER m_editingNote NOTIFY editingNoteChanged FINAL)
    Q_PROPERTY(QString firstPath READ firstPath NOTIFY rowsChanged FINAL)
public:
    /// The arguments must outlive this object.
    SearchResults(const ShelfLibrary &library, const ClipboardHistory &clipboard,
                  const Snippets &snippets, const HeldFiles &held, const Preferences &preferences,
                  QObject *parent = nullptr);

    /// The path of the first matching application; empty if none matches or it has no path.
    [[nodiscard]] QString firstPath() const;

Q_SIGNALS:
    void queryChanged();
    void editingNoteChanged();
    void rowsChanged();

private:
    [[nodiscard]] Rows matches() const;
    void refresh();

    const ShelfLibrary &m_library;
    const ClipboardHistory &m_clipboard;
    const Snippets &m_snippets;
    const HeldFiles &m_held;
    const Preferences &m_preferences;
    QString m_query;            ///< if empty, everything matches
    bool m_editingNote = false; ///< keeps the note in the list even if it does not match
};

} // namespace perchly
