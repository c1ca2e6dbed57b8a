#pragma once

#include <QByteArray>

#include <functional>

namespace perchly {

/// Tells the desktop that a program is starting, so that it can show that and raise the program's
/// window. Both are called on any thread; either may be empty.
struct StartNotices {
    /// Takes the program's name in UTF-8; returns the startup identifier for its environment, or
    /// nothing when no desktop listens.
    std::function<QByteArray(const QByteArray &name)> begin = {};
    /// The program failed to start.
    std::function<void(const QByteArray &identifier)> withdraw = {};
};

} // namespace perchly
