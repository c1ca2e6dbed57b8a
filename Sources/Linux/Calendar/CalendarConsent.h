#pragma once

#include "CalendarStore.h"
#include "FolderWatch.h"

#include <functional>

namespace perchly {

/// The user's answer, in a small file that the user can edit or remove while the program runs.
/// Anything but a clear yes or no counts as never asked. Main thread only.
class CalendarConsent {
public:
    /// Takes the file's absolute path; calls `changed` when the answer changes.
    CalendarConsent(QString path, std::function<void()> changed);

    /// "perchly/permissions/calendars.json" in the user's configuration folder.
    [[nodiscard]] static QString defaultPath();

    [[nodiscard]] CalendarAccess access() const { return m_access; }

    /// Stores the answer. Returns an empty string, or why the answer holds only for this run.
    [[nodiscard]] QString remember(CalendarAccess access);

private:
    void read();

    QString m_path;
    std::function<void()> m_changed = [] {};
    CalendarAccess m_access = CalendarAccess::NotAsked;
    CalendarAccess m_stored = CalendarAccess::NotAsked; ///< as read from the file
    FolderWatch m_watch;
};

} // namespace perchly
