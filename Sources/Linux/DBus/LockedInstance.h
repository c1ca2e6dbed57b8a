#pragma once

#include <QLockFile>
#include <QObject>
#include <QSocketNotifier>

#include <chrono>
#include <optional>

namespace perchly {

/// One instance for each person, by a lock file, which works without a session bus too. A second
/// instance sends SIGUSR1 to the first, so while an object of this class holds the claim, it owns
/// that signal of the process. At most one object claims at a time. Main thread only.
class LockedInstance : public QObject {
    Q_OBJECT
public:
    /// The lock "perchly.lock" is made in that folder.
    explicit LockedInstance(const QString &folder, QObject *parent = nullptr);
    ~LockedInstance() override;

    /// The runtime folder, or else a folder of the person's own among the temporary files; empty
    /// when neither can be trusted.
    [[nodiscard]] static QString defaultFolder();

    /// True when this is the only instance. False when another runs, which has been told. Where no
    /// lock can be made it says so on standard error and is true: better two than none.
    /// @param patience how long to wait for another one that may be ending.
    [[nodiscard]] bool claim(std::chrono::milliseconds patience = {});

Q_SIGNALS:
    /// Another start asked for the shelf.
    void requested();

private:
    [[nodiscard]] bool listen();
    void stopListening();

    std::optional<QLockFile> m_lock;
    std::optional<QSocketNotifier> m_notifier;
};

} // namespace perchly
