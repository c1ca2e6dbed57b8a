#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace perchly {

/// Limits the program to one running instance per user and session, and receives commands for it.
/// Main thread only.
class SingleInstance {
public:
    /// Performs a command, which may be any words that another program sends, and returns why it
    /// failed; empty if it did not.
    using Performer = std::function<QString(const QStringList &command)>;

    virtual ~SingleInstance() = default;

    /// nullopt if this is the only instance. Otherwise another one runs and was sent the command:
    /// returns why that failed, empty if it did not. Then this instance should end.
    [[nodiscard]] virtual std::optional<QString> claim(const QStringList &command) = 0;

    /// Commands are performed from the event loop. Set the performer before that runs.
    void setPerformer(Performer performer) { m_performer = std::move(performer); }

protected:
    [[nodiscard]] QString perform(const QStringList &command) const { return m_performer(command); }

private:
    Performer m_performer;
};

} // namespace perchly
