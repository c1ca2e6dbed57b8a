#pragma once

#include "StartNotices.h"

#include <QString>
#include <QUrl>

struct _GCancellable;

/// Opening applications and links by GIO. Each call blocks until the launch is done or cancelled,
/// which takes as long as the started service needs to answer; it serves a main context of its own
/// and works on any thread, whatever event loop the program runs. Each returns the empty string, or
/// why nothing was opened.
namespace perchly::giolaunch {

/// Launches the desktop entry at this absolute path. One that wants a terminal gets one that the
/// library knows, else the one that the system calls its terminal emulator.
[[nodiscard]] QString application(const QString &path, const StartNotices &notices,
                                  _GCancellable *cancellable);

/// Opens the link or local file with its default program.
[[nodiscard]] QString url(const QUrl &url, const StartNotices &notices, _GCancellable *cancellable);

/// Opens the link or local file with the application whose desktop entry has this identifier.
[[nodiscard]] QString openWith(const QString &desktopId, const QUrl &url,
                               const StartNotices &notices, _GCancellable *cancellable);

} // namespace perchly::giolaunch
