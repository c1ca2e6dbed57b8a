#pragma once

#include "KeyedRows.h"

#include <QUuid>

#include <tuple>
#include <utility>

namespace perchly {

class Preferences;

/// A short text kept for copying.
struct Snippet {
    QUuid id;
    QString text;

    [[nodiscard]] static constexpr auto fields() {
        return std::tuple(std::pair(QLatin1StringView("id"), &Snippet::id),
                          std::pair(QLatin1StringView("text"), &Snippet::text));
    }
};

/// The pinned snippets, oldest first. Row fields: "id", "label", cut to the shown part, "isBlank"
/// if nothing in it is visible, and "text". Main thread only.
class Snippets : public perchly::KeyedRows {
    Q_OBJECT
    Q_PROPERTY(bool persist READ persist WRITE setPersist NOTIFY persistChanged FINAL)
public:
    explicit Snippets(Preferences &preferences, QObject *parent = nullptr);

    [[nodiscard]] const QList<Snippet> &list() const { return m_snippets; }
    /// Adds a text unchanged, unless it is empty or already pinned. Returns false if it is too
    /// large to store.
    Q_INVOKABLE bool pin(const QString &text);
    Q_INVOKABLE void remove(const QUuid &id);
    /// Whether pinned snippets outlive the run. Turning this off deletes the stored ones.
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
