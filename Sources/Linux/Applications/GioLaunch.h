#pragma once

#include "StartNotices.h"

#include <QString>
#include <QUrl>

struct _GCancellable;

/// Opens applications and links with GIO. Each call blocks until the launch is done or cancelled,
/// which may take as long as the started service needs to answer. Any thread, without an event
/// loop. Each returns an empty string, or why nothing was opened.
namespace perchly::giolaunch {

/// Launches the desktop entry at this absolute path, in a terminal if it needs one: one that GIO
/// knows, else x-terminal-emulator.
[[nodiscard]] QString application(const QString &path, const StartNotices &notices,
                                  _GCancellable *cancellable);

/// Opens the link or local file with its default program.
[[nodiscard]] QString url(const QUrl &url, const StartNotices &notices, _GCancellable *cancellable);

/// Opens the link or local file with the application whose desktop entry has this identifier.
[[nodiscard]] QString openWith(const QString &desktopId, const QUrl &url,
                               const StartNotices &notices, _GCancellable *cancellable);

} // namespace perchly::giolaunch
