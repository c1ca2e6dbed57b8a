#pragma once

#include <QSocketNotifier>
#include <QTimer>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>

namespace perchly {

/// Tells when files of one kind come, change or go in a set of folders, by the kernel's own events:
/// silent while nothing happens. A folder that is not there is waited for. Where the kernel allows
/// no more watches, changes go unnoticed.
///
/// The set is laid down in rounds: what a round does not name is not watched any more after it. One
/// round at a time, on any thread; everything else on the thread that made the watch.
class FolderWatch {
public:
    /// Called when it was quiet for a moment after a change, or has not been for a while.
    /// What other files than those with this ending hold does not matter.
    explicit FolderWatch(std::function<void()> changed, std::string ending = ".desktop");
    ~FolderWatch();
    FolderWatch(const FolderWatch &) = delete;
    FolderWatch &operator=(const FolderWatch &) = delete;

    void beginRound();
    /// Watches the folder, but not those inside it. Name it before looking into it, so that nothing
    /// is missed.
    void add(const std::string &folder);
    void endRound();

private:
    struct Watched {
        bool folder = false;                ///< of such files, not only on the way to one
        std::set<std::string> awaited = {}; ///< names of folders that are not there yet
    };

    void readEvents();
    [[nodiscard]] bool matters(int watch, unsigned mask, const std::string &name);
    void noteChange();

    const int m_descriptor;
    std::function<void()> m_changed;
    const std::string m_ending;
    QSocketNotifier m_notifier;
    QTimer m_quiet;
    QTimer m_limit;
    std::mutex m_mutex;               ///< guards the maps
    std::map<int, Watched> m_watched; ///< by the kernel's number
    std::map<int, Watched> m_round;   ///< those of the round under way
};

} // namespace perchly
