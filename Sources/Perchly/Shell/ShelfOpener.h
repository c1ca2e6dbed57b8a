#pragma once

#include "Clock.h"
#include "Geometry.h"

namespace perchly {

struct Hosts;
class ShelfModel;
class ShelfPanel;
class ShelfPlacement;
class ShelfPreferences;

/// Opens and closes the shelf: under the pointer, closing after a delay when it leaves, and in
/// keyboard mode, in which the pointer does not matter. All arguments must outlive it. Main thread
/// only.
class ShelfOpener {
public:
    ShelfOpener(Hosts &hosts, const ShelfPreferences &preferences, ShelfModel &model,
                ShelfPlacement &placement, const ShelfPanel &panel);

    /// The pointer is there: opens the shelf under it, or begins to close the open one.
    void pointerAt(ScreenPoint pointer);

    /// Opens or closes the shelf, except while it is dragged.
    void setExpanded(bool expanded);

    [[nodiscard]] bool isKeyboardOpen() const { return m_keyboardOpen; }
    void setKeyboardOpen(bool open);
    void toggleKeyboardOpen();

    /// Gives the open shelf the keyboard outside keyboard mode, until it closes. True if the shelf
    /// did not have it before; then returnKeyboard() may end that earlier.
    bool takeKeyboard();
    void returnKeyboard();

    /// Closes the shelf for a window that takes the keyboard from it.
    void closeForWindow();

    /// Closes the shelf for a drag, which decides itself where the panel is.
    void closeForDrag();

private:
    void setKeyboardMode(bool on);
    void watchForJumps(ScreenPoint pointer);
    void startCloseTask();
    void startSettleTask();

    Hosts &m_hosts;
    const ShelfPreferences &m_preferences;
    ShelfModel &m_model;
    ShelfPlacement &m_placement;
    const ShelfPanel &m_panel;
    bool m_keyboardOpen = false;
    bool m_keyboardBorrowed = false; ///< taken outside keyboard mode
    Task m_closeTask;
    Task m_settleTask;
};

} // namespace perchly
