#pragma once

#include <QSocketNotifier>
#include <QTimer>

#include <functional>
#include <mutex>
#include <set>
#include <string>

namespace perchly {

/// Tells when files of one kind, or folders, come, change or go in a set of folders, by inotify.
/// For a folder that does not exist yet, the closest parent folder is watched. Where the kernel
/// allows no more watches, changes go unnoticed.
///
/// The set is laid down in rounds: folders that a round does not add are no longer watched after
/// it. One round at a time, on any thread; everything else on the thread that made the watch.
class FolderWatch {
public:
    /// Called some moments after a change. Files without this ending do not matter.
    explicit FolderWatch(std::function<void()> changed, std::string ending);
    ~FolderWatch();

    void beginRound();
    /// Watches the folder, but not those inside it. Add it before reading it, so that no change is
    /// missed.
    void add(const std::string &folder);
    void endRound();

private:
    void readEvents();
    [[nodiscard]] bool matters(int watch, unsigned mask, const std::string &name) const;

    const int m_descriptor;
    const std::string m_ending;
    QSocketNotifier m_notifier;
    QTimer m_delay;
    std::mutex m_mutex;      ///< guards the sets
    std::set<int> m_watches; ///< the kernel's numbers
    std::set<int> m_round;   ///< those of the round under way
};

} // namespace perchly
