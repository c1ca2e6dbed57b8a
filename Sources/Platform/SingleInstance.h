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
    /// Takes the error of a command, empty if it succeeded. Called once, perhaps after this object
    /// is gone.
    using Answer = std::function<void(const QString &error)>;
    /// Performs a command, which may be any words that another program sends, and answers, at once
    /// or later.
    using Performer = std::function<void(const QStringList &command, const Answer &answer)>;

    virtual ~SingleInstance() = default;

    /// nullopt if this is the only instance. Otherwise another one runs and was sent the command:
    /// returns why that failed, empty if it did not. Then this instance should end.
    [[nodiscard]] virtual std::optional<QString> claim(const QStringList &command) = 0;

    /// Commands are performed from the event loop. Set the performer before that runs.
    void setPerformer(Performer performer) { m_performer = std::move(performer); }

protected:
    void perform(const QStringList &command, const Answer &answer) const {
        m_performer(command, answer);
    }

private:
    Performer m_performer;
};

} // namespace perchly
