#pragma once

#include "KeyedRows.h"

namespace perchly {

class ClipboardHistory;
class HeldFiles;
class Preferences;
class ShelfLibrary;
class Snippets;

/// All matches of a search in one list: installed applications, best match first, the quick note,
/// copied texts and pictures, pinned snippets, held files and links, each kind that has matches
/// below its title. Row fields: "kind" ("title", "app", "note", "clip", "snippet" or "held"),
/// "label" (the whole note, or a text cut to the shown part) and "target" (an application's path, a
/// clip's id, a snippet's text, or a URL). Main thread only.
class SearchResults : public perchly::KeyedRows {
    Q_OBJECT
    Q_PROPERTY(QString query MEMBER m_query NOTIFY queryChanged FINAL)
    Q_PROPERTY(bool editingNote MEMBER m_editingNote NOTIFY editingNoteChanged FINAL)
public:
    /// The arguments must outlive this object.
    SearchResults(const ShelfLibrary &library, const ClipboardHistory &clipboard,
                  const Snippets &snippets, const HeldFiles &held, const Preferences &preferences,
                  QObject *parent = nullptr);

Q_SIGNALS:
    void queryChanged();
    void editingNoteChanged();

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
