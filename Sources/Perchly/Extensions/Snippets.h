#pragma once

#include "KeyedRows.h"

#include <QUuid>

#include <tuple>
#include <utility>

namespace perchly {

class Preferences;

/// A short text that is kept for copying again.
struct Snippet {
    QUuid id;
    QString text;

    [[nodiscard]] static constexpr auto fields() {
        return std::tuple(std::pair(QLatin1StringView("id"), &Snippet::id),
                          std::pair(QLatin1StringView("text"), &Snippet::text));
    }
};

/// The pinned snippets, oldest first; as rows: "id", "label", cut to what can be shown, "isBlank"
/// if there is nothing to see in it, and "text". Main thread only.
class Snippets : public perchly::KeyedRows {
    Q_OBJECT
    Q_PROPERTY(bool persist READ persist WRITE setPersist NOTIFY persistChanged FINAL)
public:
    explicit Snippets(Preferences &preferences, QObject *parent = nullptr);

    [[nodiscard]] const QList<Snippet> &list() const { return m_snippets; }
    /// Adds a text as it is. An empty one, and one that is pinned already, changes nothing. False
    /// if there is no room for it.
    Q_INVOKABLE bool pin(const QString &text);
    Q_INVOKABLE void remove(const QUuid &id);
    /// Whether pinned snippets outlive the run: turning it off deletes the stored ones.
    [[nodiscard]] bool persist() const;
    void setPersist(bool persist);

Q_SIGNALS:
    void changed();
    void persistChanged();

private:
    void setSnippets(const QList<Snippet> &snippets);
    void show();
    void store();

    Preferences &m_preferences;
    QList<Snippet> m_snippets;
};

} // namespace perchly
