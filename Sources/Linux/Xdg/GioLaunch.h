#pragma once

#include <QString>
#include <QUrl>

struct _GCancellable;

/// Opening applications and links by GIO. Each call blocks until the launch is done or cancelled,
/// which takes as long as the started service needs to answer; it serves a main context of its own
/// and works on any thread, whatever event loop the program runs. Each returns the empty string, or
/// why nothing was opened.
namespace perchly::giolaunch {

/// Launches the desktop entry at this absolute path.
[[nodiscard]] QString application(const QString &path, _GCancellable *cancellable);

/// Opens the link or local file with its default program.
[[nodiscard]] QString url(const QUrl &url, _GCancellable *cancellable);

} // namespace perchly::giolaunch
