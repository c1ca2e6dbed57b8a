#pragma once

#include <QByteArray>

#include <functional>

namespace perchly {

/// Tells the desktop that a program is on its way, so that it can show that something happens and
/// let the program's window come to the front. Both are called on any thread; either may be empty.
struct StartNotices {
    /// With the program's name for people, in UTF-8; returns what the program is given to say that
    /// it is there, or nothing when there is nobody to tell.
    std::function<QByteArray(const QByteArray &name)> begin = {};
    /// The program will not come.
    std::function<void(const QByteArray &identifier)> withdraw = {};
};

} // namespace perchly
