#include "SearchResults.h"

#include "ShownText.h"
#include "TextSearch.h"

#include <QHash>
#include <QSet>
#include <QStringMatcher>

#include <algorithm>
#include <iterator>

namespace perchly {

namespace {

constexpr std::array titles{QLatin1StringView("Apps"), QLatin1StringView("Quick note"),
                            QLatin1StringView("Clipboard"), QLatin1StringView("Pinned snippets"),
                            QLatin1StringView("Held files and links")};
constexpr std::array kinds{QLatin1StringView("app"), QLatin1StringView("note"),
                           QLatin1StringView("clip"), QLatin1StringView("snippet"),
                           QLatin1StringView("held")};

/// Above this many separate changes a view is faster with other contents in the same rows.
constexpr int mostChanges = 48;

/// A part of the rows that goes, or comes: what stands from `from` on in the new rows.
struct Change {
    int at;
    int removed;
    int inserted;
    int from;
};

/// The changes that lead from the old keys to the new ones, from the end to the start, so that each
/// leaves the places of those after it as they are.
QList<Change> changesBetween(const QStringList &before, const QStringList &after) {
    const QSet<QString> old(before.cbegin(), before.cend());
    const QSet<QString> wanted(after.cbegin(), after.cend());
    QList<Change> changes;
    int at = 0;
    int from = 0;
    while (at < before.size() || from < after.size()) {
        if (at < before.size() && from < after.size() && before.at(at) == after.at(from)) {
            ++at;
            ++from;
            continue;
        }
        Change change{at, 0, 0, from};
        while (at < before.size() && (from == after.size() || before.at(at) != after.at(from)) &&
               (from == after.size() || !wanted.contains(before.at(at)) ||
                old.contains(after.at(from)))) {
            ++change.removed;
            ++at;
        }
        while (from < after.size() && (at == before.size() || (before.at(at) != after.at(from) &&
                                                               !old.contains(after.at(from))))) {
            ++change.inserted;
            ++from;
        }
        changes.prepend(change);
    }
    return changes;
}

} // namespace

SearchResults::SearchResults(QObject *parent)
    : QAbstractListModel(parent) {
    followStores();
}

void SearchResults::setLibrary(ShelfLibrary *library) {
    m_library = library;
    if (library != nullptr) {
        connect(library, &ShelfLibrary::installedChanged, this, &SearchResults::readApps);
        readApps();
    }
    Q_EMIT libraryChanged();
}

void SearchResults::setTools(Productivity *tools) {
    m_tools = tools;
    if (tools != nullptr) {
        connect(tools, &Productivity::clipsChanged, this, &SearchResults::readClips);
        connect(tools, &Productivity::heldChanged, this, &SearchResults::readHeld);
        readClips();
        readHeld();
    }
    Q_EMIT toolsChanged();
}

void SearchResults::setExtras(ShelfExtras *extras) {
    m_extras = extras;
    if (extras != nullptr) {
        connect(extras, &ShelfExtras::snippetsChanged, this, &SearchResults::readSnippets);
        readSnippets();
    }
    Q_EMIT extrasChanged();
}

void SearchResults::setNote(const QString &note) {
    if (m_note == note) {
        return;
    }
    m_note = note;
    readNote();
    Q_EMIT noteChanged();
}

void SearchResults::setEditingNote(bool editing) {
    if (m_editingNote == editing) {
        return;
    }
    m_editingNote = editing;
    readNote();
    Q_EMIT editingNoteChanged();
}

void SearchResults::setQuery(const QString &query) {
    if (m_query == query) {
        return;
    }
    m_query = query;
    overwriteRows(matches());
    Q_EMIT rowsChanged();
    Q_EMIT queryChanged();
}

QString SearchResults::firstPath() const {
    return m_rows.size() > 1 && !m_rows.at(1).isTitle ? m_rows.at(1).target.toString() : QString();
}

void SearchResults::readNote() {
    const bool shown = m_editingNote || !m_note.isEmpty();
    setEntries(Note, shown ? Entries{{.label = m_note, .text = m_note}} : Entries());
}

void SearchResults::readApps() {
    const ShelfLibrary *library = m_library;
    const QList<ShelfItem> installed =
        library != nullptr ? library->installed() : QList<ShelfItem>();
    Entries entries;
    entries.reserve(installed.size());
    for (const ShelfItem &item : installed) {
        entries.append({.key = item.id,
                        .label = inOneLine(item.name),
                        .target = item.applicationPath(),
                        .text = item.name});
    }
    setEntries(Apps, std::move(entries));
}

void SearchResults::readClips() {
    const Productivity *tools = m_tools;
    const QList<Clip> clips = tools != nullptr ? tools->clips() : QList<Clip>();
    Entries entries;
    for (const Clip &clip : clips) {
        const QString label = clip.label();
        entries.append(
            {.key = clip.id.toString(), .label = rowText(label), .target = clip.id, .text = label});
    }
    setEntries(Clipboard, std::move(entries));
}

void SearchResults::readSnippets() {
    const ShelfExtras *extras = m_extras;
    const QList<Snippet> snippets = extras != nullptr ? extras->snippets() : QList<Snippet>();
    Entries entries;
    for (const Snippet &snippet : snippets) {
        entries.append({.key = snippet.id.toString(),
                        .label = rowText(snippet.text),
                        .target = snippet.text,
                        .text = snippet.text});
    }
    setEntries(Snippets, std::move(entries));
}

void SearchResults::readHeld() {
    const Productivity *tools = m_tools;
    const QList<QUrl> held = tools != nullptr ? tools->held() : QList<QUrl>();
    Entries entries;
    for (const QUrl &url : held) {
        const QString address = url.toString(QUrl::FullyEncoded);
        entries.append({.key = address,
                        .label = inOneLine(Productivity::labelOf(url)),
                        .target = url,
                        .text = address});
    }
    setEntries(Held, std::move(entries));
}

void SearchResults::setEntries(Section section, Entries entries) {
    // Long texts are folded once only.
    QHash<QString, const Entry *> known;
    for (const Entry &entry : std::as_const(m_entries[section])) {
        known.insert(entry.key, &entry);
    }
    for (Entry &entry : entries) {
        entry.key.prepend(titles.at(size_t(section)) + u'/'); // different in all sections
        const Entry *before = known.value(entry.key);
        if (before != nullptr && before->text == entry.text) {
            entry.folded = before->folded;
        }
    }
    m_entries[section] = std::move(entries);
    followStores();
}

SearchResults::Rows SearchResults::matches() const {
    const QStringMatcher matcher(foldedForSearch(m_query));
    const auto isMatch = [this, &matcher](const Entry &entry) {
        if (m_query.isEmpty()) {
            return true;
        }
        if (entry.folded.isNull()) {
            entry.folded = foldedForSearch(entry.text);
        }
        return matcher.indexIn(entry.folded) >= 0;
    };
    Rows rows;
    for (int number = 0; number < sectionCount; ++number) {
        const auto section = Section(number);
        const QString title = titles.at(size_t(number));
        const qsizetype before = rows.size();
        rows.append({section, title, title, {}, true});
        for (const Entry &entry : m_entries.at(size_t(number))) {
            if (isMatch(entry) || (section == Note && m_editingNote)) {
                rows.append({section, entry.key, entry.label, entry.target, false});
            }
        }
        if (section == Note && rows.size() == before + 1) {
            rows.removeLast();
        }
    }
    return rows;
}

void SearchResults::followStores() {
    replaceRows(matches());
    Q_EMIT rowsChanged();
}

void SearchResults::overwriteRows(const Rows &rows) {
    const auto before = int(m_rows.size());
    const auto after = int(rows.size());
    if (after < before) {
        beginRemoveRows({}, after, before - 1);
        m_rows = rows;
        endRemoveRows();
    } else if (after > before) {
        beginInsertRows({}, before, after - 1);
        m_rows = rows;
        endInsertRows();
    } else {
        m_rows = rows;
    }
    if (const int common = std::min(before, after); common > 0) {
        Q_EMIT dataChanged(index(0), index(common - 1), {KindRole, LabelRole, TargetRole});
    }
}

void SearchResults::replaceRows(const Rows &rows) {
    const auto keys = [](const Rows &of) {
        QStringList result;
        result.reserve(of.size());
        std::ranges::transform(of, std::back_inserter(result), &Row::key);
        return result;
    };
    const QList<Change> changes = changesBetween(keys(m_rows), keys(rows));
    if (changes.size() > mostChanges) {
        overwriteRows(rows);
        return;
    }
    for (const Change &change : changes) {
        if (change.removed > 0) {
            beginRemoveRows({}, change.at, change.at + change.removed - 1);
            m_rows.remove(change.at, change.removed);
            endRemoveRows();
        }
        if (change.inserted > 0) {
            beginInsertRows({}, change.at, change.at + change.inserted - 1);
            m_rows.insert(change.at, change.inserted, Row());
            std::copy_n(rows.cbegin() + change.from, change.inserted, m_rows.begin() + change.at);
            endInsertRows();
        }
    }
    for (qsizetype place = 0; place < rows.size(); ++place) {
        const bool differs = m_rows.at(place).label != rows.at(place).label ||
                             m_rows.at(place).target != rows.at(place).target;
        if (differs) {
            m_rows[place] = rows.at(place);
            Q_EMIT dataChanged(index(int(place)), index(int(place)), {LabelRole, TargetRole});
        }
    }
}

int SearchResults::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant SearchResults::data(const QModelIndex &index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    const Row &row = m_rows.at(index.row());
    switch (role) {
    case KindRole:
        return QString(row.isTitle ? QLatin1StringView("title") : kinds.at(size_t(row.section)));
    case LabelRole:
        return row.label;
    case TargetRole:
        return row.target;
    default:
        return {};
    }
}

QHash<int, QByteArray> SearchResults::roleNames() const {
    return {{KindRole, "kind"}, {LabelRole, "label"}, {TargetRole, "target"}};
}

} // namespace perchly
