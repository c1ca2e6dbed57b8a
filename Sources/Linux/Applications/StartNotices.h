#pragma once

#include <QByteArray>

#include <functional>

namespace perchly {

/// Tells the desktop that a program is starting, so that it can show this and raise the program's
/// window. The functions are called on any thread but the main thread, and may block for a moment;
/// each may be empty.
struct StartNotices {
    /// Takes the program's name in UTF-8. Returns the startup identifier for its environment, empty
    /// if the desktop shows no notices.
    std::function<QByteArray(const QByteArray &name)> begin = {};
    /// The program failed to start.
    std::function<void(const QByteArray &identifier)> withdraw = {};
    /// Returns a token that lets the program activate its window; empty if the desktop gives none.
    std::function<QByteArray()> token = {};
};

} // namespace perchly
