#pragma once

#include "Clock.h"

#include <QList>
#include <QString>
#include <QUrl>

#include <functional>

namespace perchly {

/// Asks the user for files with the desktop's file dialog. Nothing blocks. Main thread only.
class OpenPanel {
public:
    enum class Choice {
        FilesAndFolders, ///< any of them, several at once
        Applications     ///< desktop entries, several at once
    };

    struct Request {
        QString title;
        QString confirmLabel; ///< of the button that ends the choice; empty for the usual one
        QString folder;       ///< where it starts; empty, or not there: wherever the dialog does
        Choice choice = Choice::FilesAndFolders;
    };

    /// Called once on the main thread, never before `ask` has returned: the chosen files in order,
    /// or none if the user cancelled or there is no dialog to show.
    using Completion = std::function<void(const QList<QUrl> &chosen)>;

    virtual ~OpenPanel() = default;

    /// Shows the dialog over the program's active window, which takes no input until it is closed.
    /// Destroying the task closes the dialog, and the completion is not called any more; that is
    /// allowed from within the completion. The panel outlives the task.
    [[nodiscard]] virtual Task ask(const Request &request, Completion completion) = 0;
};

} // namespace perchly
