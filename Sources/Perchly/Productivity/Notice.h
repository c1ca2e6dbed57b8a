#pragma once

#include <QString>
#include <QUrl>

#include <functional>

namespace perchly {

/// Shows a message in the workspace window. May be called even if the window's store is gone.
using Notice = std::function<void(const QString &message)>;

/// A completion that reports an error, if any: "Could not open notes.txt. <error>".
[[nodiscard]] std::function<void(const QString &error)>
reportFailure(const Notice &notice, const QString &doing, const QUrl &url);

} // namespace perchly
