#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

namespace perchly {

/// An application that can be launched from here.
struct FoundApplication {
    QString path; ///< absolute, of its desktop entry, as the folders were given
    QString name; ///< in the user's language

    bool operator==(const FoundApplication &) const = default;
};

/// The applications of this machine, as desktop menus show them. Main thread only.
class ApplicationCatalog : public QObject {
    Q_OBJECT
public:
    /// Called once on the main thread, never before the call has returned, and not after the
    /// catalog is destroyed. Any object that it needs must be held weakly.
    using Completion = std::function<void(const QList<FoundApplication> &applications)>;

    using QObject::QObject;

    /// Looks through the applications' folders on another thread: every application that the user
    /// is to see, in the order of a file browser (by name under the user's locale, whatever the
    /// case, numbers by their value). What cannot be read is left out. From the first call on,
    /// changes are announced.
    virtual void find(Completion completion) = 0;

    /// Names the applications of these desktop entries, wherever they are and whether or not menus
    /// show them, in the order given. An entry that cannot be read has its file's name without the
    /// extension. Reads on another thread.
    virtual void describe(const QStringList &paths, Completion completion) = 0;

    /// Where a user who looks for an application starts.
    [[nodiscard]] virtual QString startFolder() const = 0;

Q_SIGNALS:
    /// One or more folders of applications changed, some moments ago; what they hold now is found
    /// by `find`.
    void changed();
};

} // namespace perchly
