#pragma once

#include <QByteArray>

#include <functional>

namespace perchly {

/// Tells the desktop that a program is starting, so that it can show this and raise the program's
/// window. Each function may be empty. All but askToken are called on any thread but the main
/// thread, and may block for a moment.
struct StartNotices {
    /// Takes the program's name in UTF-8. Returns the startup identifier for its environment, empty
    /// if the desktop shows no notices.
    std::function<QByteArray(const QByteArray &name)> begin = {};
    /// The program failed to start.
    std::function<void(const QByteArray &identifier)> withdraw = {};
    /// Returns a token that lets the program activate its window; empty if the desktop gives none.
    std::function<QByteArray()> token = {};
    /// Asks for the token of one launch and returns the function that waits for it. Main thread,
    /// while the window that the user acted on is still open.
    std::function<std::function<QByteArray()>()> askToken = {};

    /// The notices with the token of one launch. Main thread.
    [[nodiscard]] StartNotices forLaunch() const {
        StartNotices notices = *this;
        notices.token = askToken ? askToken() : nullptr;
        return notices;
    }
};

} // namespace perchly
