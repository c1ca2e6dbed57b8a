#pragma once

#include "Productivity.h"
#include "ShelfExtras.h"
#include "ShelfLibrary.h"

#include <QAbstractListModel>
#include <QPointer>

#include <array>

namespace perchly {

/// Everything at hand that matches a search, for one list: installed applications, the quick note,
/// copied texts and pictures, pinned snippets, held files and links, each kind below its title.
/// When a store changes, rows that stay keep their delegates, and so the keyboard; a search writes
/// other rows into those that are there, since making delegates takes longest. Main thread only.
class SearchResults : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(perchly::ShelfLibrary *library READ library WRITE setLibrary NOTIFY libraryChanged
                   REQUIRED FINAL)
    Q_PROPERTY(
        perchly::Productivity *tools READ tools WRITE setTools NOTIFY toolsChanged REQUIRED FINAL)
    Q_PROPERTY(perchly::ShelfExtras *extras READ extras WRITE setExtras NOTIFY extrasChanged
                   REQUIRED FINAL)
    Q_PROPERTY(QString note READ note WRITE setNote NOTIFY noteChanged FINAL)
    Q_PROPERTY(
        bool editingNote READ editingNote WRITE setEditingNote NOTIFY editingNoteChanged FINAL)
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged FINAL)
    Q_PROPERTY(QString firstPath READ firstPath NOTIFY rowsChanged FINAL)
public:
    enum Role {
        KindRole = Qt::UserRole, ///< "kind": "title", "app", "note", "clip", "snippet" or "held"
        LabelRole,               ///< "label": the whole note, else no more than can be shown
        TargetRole ///< "target": an application's path, a clip's id, a snippet's text, a URL
    };

    explicit SearchResults(QObject *parent = nullptr);

    [[nodiscard]] ShelfLibrary *library() const { return m_library; }
    void setLibrary(ShelfLibrary *library);
    [[nodiscard]] Productivity *tools() const { return m_tools; }
    void setTools(Productivity *tools);
    [[nodiscard]] ShelfExtras *extras() const { return m_extras; }
    void setExtras(ShelfExtras *extras);
    /// The quick note's text.
    [[nodiscard]] QString note() const { return m_note; }
    void setNote(const QString &note);

    /// Someone is writing in the note: it stays whatever it says, until they leave it.
    [[nodiscard]] bool editingNote() const { return m_editingNote; }
    void setEditingNote(bool editing);

    /// What to look for; everything matches an empty one.
    [[nodiscard]] QString query() const { return m_query; }
    void setQuery(const QString &query);

    /// Path of the first application that matches; empty if there is none, or it has no path.
    [[nodiscard]] QString firstPath() const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void libraryChanged();
    void toolsChanged();
    void extrasChanged();
    void noteChanged();
    void editingNoteChanged();
    void queryChanged();
    void rowsChanged();

private:
    enum Section { Apps, Note, Clipboard, Snippets, Held };
    static constexpr int sectionCount = 5;

    struct Entry {
        QString key = {};
        QString label = {};
        QVariant target = {};
        QString text = {};           ///< what is compared
        mutable QString folded = {}; ///< as it is compared; null until it is asked for
    };
    using Entries = QList<Entry>;

    struct Row {
        Section section = Apps;
        QString key; ///< its section's title, and the entry's key after it
        QString label;
        QVariant target; ///< null for a section's title
        bool isTitle = false;
    };
    using Rows = QList<Row>;

    void setEntries(Section section, Entries entries);
    void readNote();
    void readApps();
    void readClips();
    void readSnippets();
    void readHeld();

    [[nodiscard]] Rows matches() const;
    void followStores();
    void replaceRows(const Rows &rows);
    void overwriteRows(const Rows &rows);

    QPointer<ShelfLibrary> m_library;
    QPointer<Productivity> m_tools;
    QPointer<ShelfExtras> m_extras;
    QString m_note;
    bool m_editingNote = false;
    QString m_query;
    std::array<Entries, sectionCount> m_entries;
    Rows m_rows;
};

} // namespace perchly
