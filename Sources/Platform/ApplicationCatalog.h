#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

namespace perchly {

/// An application that can be launched.
struct FoundApplication {
    QString path; ///< absolute path of its desktop entry, not canonicalised
    QString name; ///< in the user's language
    /// Its name, kind, keywords and executable, each on a line, folded for matchRank(). Only from
    /// find().
    QString searchText = {};

    bool operator==(const FoundApplication &) const = default;
};

/// This machine's applications, as desktop menus show them. Main thread only.
class ApplicationCatalog : public QObject {
    Q_OBJECT
public:
    /// Called once on the main thread, never before the call has returned, and not after the
    /// catalog is destroyed. It must hold the objects that it needs weakly.
    using Completion = std::function<void(const QList<FoundApplication> &applications)>;

    using QObject::QObject;

    /// Searches the applications' folders on another thread and returns every application that
    /// menus show, in a file browser's order (by name in the user's locale, ignoring case, with
    /// numbers by value). Omits unreadable entries. Changes are announced from the first call on.
    virtual void find(Completion completion) = 0;

    /// Names the applications of these desktop entries, in any folder and even if menus do not show
    /// them, in the order given. An unreadable entry gets its file name without the extension.
    /// Reads on another thread.
    virtual void describe(const QStringList &paths, Completion completion) = 0;

    /// The start folder for choosing applications.
    [[nodiscard]] virtual QString startFolder() const = 0;

Q_SIGNALS:
    /// The applications' folders changed, some moments ago; find() returns their current content.
    void changed();
};

} // namespace perchly
