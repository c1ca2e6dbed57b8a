#pragma once

#include <QString>

#include <optional>

namespace perchly {

/// Lets the program continue in the background while the process that was started waits for the
/// result of its command, and ends. Main thread only.
class BackgroundStart {
public:
    /// Forks. In the started process: waits, and returns the error of the command, empty if it
    /// succeeded. In the one in the background, which is in a session of its own and without
    /// standard streams: nullopt. Call it before any thread runs.
    [[nodiscard]] std::optional<QString> fork();

    [[nodiscard]] bool isBackground() const { return m_pipe >= 0; }

    /// Passes the error of the command on, or without a background prints it to stderr; empty if it
    /// succeeded. Returns the exit status. Call it once in the background.
    int finish(const QString &error);

private:
    int m_pipe = -1;
};

} // namespace perchly
