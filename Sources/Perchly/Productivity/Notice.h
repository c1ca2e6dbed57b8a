#pragma once

#include <QString>
#include <QUrl>

#include <functional>

namespace perchly {

/// Shows a message in the workspace window. May be called even if the window's store is gone.
using Notice = std::function<void(const QString &message)>;

/// A completion that reports an error, if any. `sentence` is like "Could not open %1. %2", for the
/// file's name and the error.
[[nodiscard]] std::function<void(const QString &error)>
reportFailure(const Notice &notice, const QString &sentence, const QUrl &url);

} // namespace perchly
