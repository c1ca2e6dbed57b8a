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
        FilesAndFolders, ///< one or more
        Applications     ///< desktop entries, one or more
    };

    struct Request {
        QString title;
        QString confirmLabel; ///< for the accept button; empty for the default
        QString folder;       ///< start folder; if empty or missing, the dialog's default
        Choice choice = Choice::FilesAndFolders;
    };

    /// Called once on the main thread, never before ask() has returned: with the chosen files in
    /// order, or with none if the user cancelled or no dialog can be shown.
    using Completion = std::function<void(const QList<QUrl> &chosen)>;

    virtual ~OpenPanel() = default;

    /// Shows the dialog above the program's active window. Destroying the task, which the
    /// completion may do, closes the dialog without calling the completion. The panel must outlive
    /// the task.
    [[nodiscard]] virtual Task ask(const Request &request, Completion completion) = 0;
};

} // namespace perchly
