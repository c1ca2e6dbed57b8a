#pragma once

#include <QSocketNotifier>
#include <QTimer>

#include <functional>
#include <mutex>
#include <set>
#include <string>

namespace perchly {

/// Reports when files with one ending, or folders, are added, changed or removed in a set of
/// folders, using inotify. For a folder that does not exist yet, the closest parent folder is
/// watched. If the kernel allows no more watches, changes go unnoticed.
///
/// The set is defined in rounds: folders that a round does not add are no longer watched after it.
/// One round at a time, on any thread; everything else on the thread that created the watch.
class FolderWatch {
public:
    /// `changed` is called some moments after a change. Ignores files without this ending.
    explicit FolderWatch(std::function<void()> changed, std::string ending);
    ~FolderWatch();

    void beginRound();
    /// Watches the folder, but not its subfolders. Call it before reading the folder, so that no
    /// change is missed.
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
    std::set<int> m_watches; ///< inotify's watch numbers
    std::set<int> m_round;   ///< those of the current round
};

} // namespace perchly
