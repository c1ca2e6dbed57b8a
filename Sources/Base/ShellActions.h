#pragma once

#include "Geometry.h"

#include <QObject>
#include <QString>

namespace perchly {

/// The requests that areas and views make to the shell. They get this interface and never see the
/// application's delegate itself. Main thread only.
class ShellActions : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Opens the shelf as if the pointer had reached it; it closes by the ordinary hover rules.
    Q_INVOKABLE virtual void showShelf() = 0;
    /// Each of these collapses the shelf and brings its window, made on first use, to the front.
    Q_INVOKABLE virtual void showSettings() = 0;
    Q_INVOKABLE virtual void showTools() = 0;
    Q_INVOKABLE virtual void showMixer() = 0;
    /// showTools() on the section "Search".
    Q_INVOKABLE virtual void showSearch() = 0;
    /// Hides the workspace window and collapses the shelf, for a capture of the screen.
    Q_INVOKABLE virtual void clearScreen() = 0;
    /// Runs the shortcut or opens the application that the shelf's entry with that identifier
    /// stands for; nothing for a widget.
    Q_INVOKABLE virtual void launch(const QString &id) = 0;
    /// Ends the program.
    Q_INVOKABLE virtual void terminate() = 0;

    /// Opens the shelf in keyboard mode, or closes it when it is in that mode already.
    Q_INVOKABLE virtual void toggleKeyboardOpen() = 0;
    /// Gives the shelf the keyboard when the user is about to type or choose in it, without
    /// entering keyboard mode: it still closes when the pointer leaves, and then gives the keyboard
    /// back. True if the shelf did not have it before; then returnKeyboard() may end that earlier.
    Q_INVOKABLE virtual bool takeKeyboard() = 0;
    Q_INVOKABLE virtual void returnKeyboard() = 0;
    /// Recomputes the shelf's sizes and places it again; called after a change of its preferences.
    Q_INVOKABLE virtual void resize() = 0;

    /// The pointer was pressed, moved and released on one of the areas by which the shelf is held.
    /// Called while the event is handled: where it happened, the shell finds out itself, since the
    /// shelf moves under the pointer.
    Q_INVOKABLE virtual void handlePressed() = 0;
    Q_INVOKABLE virtual void handleMoved() = 0;
    Q_INVOKABLE virtual void handleReleased() = 0;
    /// The press ended without a release: neither a click nor, unless a drag had begun, a drop.
    Q_INVOKABLE virtual void handleCanceled() = 0;
};

} // namespace perchly
