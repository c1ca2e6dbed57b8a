#pragma once

#include "Geometry.h"

#include <QObject>
#include <QPointF>
#include <QString>

namespace perchly {

/// The requests that areas and views make to the shell, without knowing its delegate. Main thread
/// only.
class ShellActions : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Opens the shelf as if the pointer had reached it; it closes by the ordinary hover rules.
    Q_INVOKABLE virtual void showShelf() = 0;
    /// Each of these collapses the shelf and raises its window, which is created on first use.
    Q_INVOKABLE virtual void showSettings() = 0;
    Q_INVOKABLE virtual void showTools() = 0;
    Q_INVOKABLE virtual void showMixer() = 0;
    /// showTools() on the section "Search".
    Q_INVOKABLE virtual void showSearch() = 0;
    /// Hides the workspace window and collapses the shelf, for a capture of the screen.
    Q_INVOKABLE virtual void clearScreen() = 0;
    /// Runs the shortcut or opens the application of the shelf entry with that identifier; does
    /// nothing for a widget.
    Q_INVOKABLE virtual void launch(const QString &id) = 0;
    /// Opens the status item's menu at a global position (in Qt's points). The shelf stays open
    /// under this and the following menu.
    Q_INVOKABLE virtual void showMenu(QPointF position, bool byKey) = 0;
    /// Opens the menu of the shelf entry with that identifier. "Open" calls press() of `tile`.
    Q_INVOKABLE virtual void showEntryMenu(const QString &id, QObject *tile, QPointF position,
                                           bool byKey) = 0;
    /// Ends the program.
    Q_INVOKABLE virtual void terminate() = 0;

    /// Opens the shelf in keyboard mode, or closes it when it is in that mode already.
    Q_INVOKABLE virtual void toggleKeyboardOpen() = 0;
    /// Gives the shelf the keyboard before the user types or chooses in it, without entering
    /// keyboard mode: it closes by the hover rules, and then gives the keyboard back.
    /// True if the shelf did not have it before; then returnKeyboard() may return it earlier.
    Q_INVOKABLE virtual bool takeKeyboard() = 0;
    Q_INVOKABLE virtual void returnKeyboard() = 0;
    /// Recomputes the shelf's size and places it again, after its preferences have changed.
    Q_INVOKABLE virtual void resize() = 0;

    /// The pointer was pressed, moved or released on a drag handle of the shelf. Call these while
    /// the event is handled. The shell reads the position itself, since the shelf moves under the
    /// pointer.
    Q_INVOKABLE virtual void handlePressed() = 0;
    Q_INVOKABLE virtual void handleMoved() = 0;
    Q_INVOKABLE virtual void handleReleased() = 0;
    /// The press ended without a release: a drop if a drag had begun, but never a click.
    Q_INVOKABLE virtual void handleCanceled() = 0;
};

} // namespace perchly
