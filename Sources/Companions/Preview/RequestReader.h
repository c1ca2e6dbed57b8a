#pragma once

#include <QList>
#include <QUrl>

#include <functional>

namespace perchly {

/// One request of the main program.
struct PreviewRequest {
    QList<QUrl> items;
    qsizetype index = 0; ///< one of the items
    bool toggle = false;
};

/// Reads requests from standard input until it ends, and calls back on this thread: one to a line,
/// a JSON object with "items", "index" and "toggle". Other lines are skipped. Blocks.
void readRequests(const std::function<void(const PreviewRequest &)> &handle);

} // namespace perchly
