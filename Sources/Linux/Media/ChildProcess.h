#pragma once

#include <QByteArray>
#include <QStringList>

#include <chrono>
#include <memory>
#include <optional>

namespace perchly {

/// Asks a child process that another thread waits for to end. Any thread.
class StopRequest {
public:
    StopRequest();
    ~StopRequest();
    StopRequest(const StopRequest &) = delete;
    StopRequest &operator=(const StopRequest &) = delete;

    void send() const;
    /// Readable once it was sent.
    [[nodiscard]] int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

/// Runs a program and waits for it, its input and errors connected to nothing. Gives its standard
/// output if it ended with status 0; nothing if it could not be started, failed, wrote more than
/// `mostOutput` bytes, was asked to stop, or reached the limit. Whatever happens the process is
/// gone afterwards: it is asked to end first and killed half a second later. What its own children
/// hold open is not waited for. Blocks.
[[nodiscard]] std::optional<QByteArray> runChild(const QString &program,
                                                 const QStringList &arguments,
                                                 std::optional<std::chrono::milliseconds> limit,
                                                 qsizetype mostOutput, const StopRequest &stop);

} // namespace perchly
