#pragma once

#include "CalendarStore.h"
#include "FolderWatch.h"

#include <functional>

namespace perchly {

/// What the person answered, in a small file of its own that they can read, change and remove while
/// the program runs. Anything but a clear yes or no in it counts as never asked. Main thread only.
class CalendarConsent {
public:
    /// The file's absolute path, and what to call when the answer is another one.
    CalendarConsent(QString path, std::function<void()> changed);

    /// "perchly/permissions/calendars.json" in the person's configuration folder.
    [[nodiscard]] static QString defaultPath();

    [[nodiscard]] CalendarAccess access() const { return m_access; }

    /// Holds from now on, and between runs. Empty, or why it holds for this run only.
    [[nodiscard]] QString remember(CalendarAccess access);

private:
    void set(CalendarAccess access);
    void read();

    QString m_path;
    std::function<void()> m_changed;
    CalendarAccess m_access = CalendarAccess::NotAsked;
    CalendarAccess m_stored = CalendarAccess::NotAsked; ///< what the file said last
    FolderWatch m_watch;
};

} // namespace perchly
