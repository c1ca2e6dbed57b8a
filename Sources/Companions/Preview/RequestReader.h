#pragma once

#include <QList>
#include <QUrl>

#include <functional>

namespace perchly {

/// One request of the main program.
struct PreviewRequest {
    QList<QUrl> items;
    qsizetype index = 0; ///< into `items`
    bool toggle = false;
    QString screen = {}; ///< where a hidden window appears, by QScreen::name()
};

/// Reads requests from stdin until it ends, and calls back on this thread. Each line is a JSON
/// object with "items", "index", "toggle" and "screen"; other lines are skipped. Blocks.
void readRequests(const std::function<void(const PreviewRequest &)> &handle);

} // namespace perchly
