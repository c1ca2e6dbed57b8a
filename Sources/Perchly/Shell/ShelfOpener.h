#pragma once

#include "Clock.h"
#include "Geometry.h"

#include <QCoreApplication>

namespace perchly {

struct Hosts;
class ShelfModel;
class ShelfPanel;
class ShelfPlacement;
class ShelfPreferences;

/// Opens and closes the shelf: under the pointer, with a delay, closing with a delay after it
/// leaves, and in keyboard mode, which ignores the pointer. The arguments must outlive it. Main
/// thread only.
class ShelfOpener {
    Q_DECLARE_TR_FUNCTIONS(ShelfOpener)
public:
    ShelfOpener(Hosts &hosts, const ShelfPreferences &preferences, ShelfModel &model,
                ShelfPlacement &placement, const ShelfPanel &panel);

    /// The pointer is at that point: opens the shelf under it, or starts to close the open shelf.
    void pointerAt(ScreenPoint pointer);

    /// Opens or closes the shelf, except while it is dragged.
    void setExpanded(bool expanded);

    /// Something that the shelf accepts is being dragged over it.
    void draggedOver();

    [[nodiscard]] bool isKeyboardOpen() const;
    void setKeyboardOpen(bool open);
    void toggleKeyboardOpen();

    /// Gives the open shelf the keyboard outside keyboard mode, until it closes. True if the shelf
    /// did not have it before; then returnKeyboard() may return it earlier.
    bool takeKeyboard();
    void returnKeyboard();

    /// Closes the shelf for a window that takes the keyboard from it.
    void closeForWindow();

    /// Another window has taken the keyboard: closes a shelf in keyboard mode.
    void keyboardLost();

    /// The shelf does not get the keyboard: closes it in keyboard mode and says so.
    void keyboardRefused();

    /// Closes the shelf for a drag, which places the panel itself. The panel keeps the keyboard
    /// until returnKeyboard(): Qt Quick cancels a press in a window that loses it.
    void closeForDrag();

private:
    void setKeyboardMode(bool on);
    void watchForJumps(ScreenPoint pointer);
    void startOpenTask();
    void openUnderPointer();
    void startCloseTask();
    void startSettleTask();

    Hosts &m_hosts;
    const ShelfPreferences &m_preferences;
    ShelfModel &m_model;
    ShelfPlacement &m_placement;
    const ShelfPanel &m_panel;
    bool m_keyboardBorrowed = false; ///< taken outside keyboard mode
    Task m_openTask;
    Task m_closeTask;
    Task m_settleTask;
};

} // namespace perchly
