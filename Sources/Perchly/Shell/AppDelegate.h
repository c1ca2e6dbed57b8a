#pragma once

#include "AuxiliaryWindow.h"
#include "Clock.h"
#include "DisplayPreferences.h"
#include "Displays.h"
#include "FieldPasting.h"
#include "MediaTracking.h"
#include "Productivity.h"
#include "ShelfExtras.h"
#include "ShelfGeometry.h"
#include "ShelfHeaderView.h"
#include "ShelfHotKey.h"
#include "ShelfLibrary.h"
#include "ShelfModel.h"
#include "ShelfPanel.h"
#include "ShelfPreferences.h"
#include "ShellActions.h"
#include "VolumeMixer.h"

#include <QIcon>
#include <QQmlEngine>
#include <QUrl>

#include <memory>
#include <optional>

namespace perchly {

struct Hosts;
struct KeyPress;

/// What the shell shows but does not make itself. An empty view leaves its window without content.
struct ShellResources {
    QIcon statusIcon = {}; ///< and the windows'
    QUrl shelfView = {};
    QUrl settingsView = {};
    QUrl toolsView = {};
    QUrl mixerView = {};
};

/// The program's single controller. It owns every store and window for the whole run and drives the
/// shelf: where it is, when it opens and closes, how it is dragged, and which keys it takes.
///
/// The shelf is collapsed, hover-open (closes after a delay when the pointer leaves), keyboard-open
/// (stays until told otherwise) or dragged. Main thread only.
class AppDelegate : public ShellActions {
    Q_OBJECT
public:
    /// Makes the stores. The hosts must outlive the delegate.
    explicit AppDelegate(Hosts &hosts, ShellResources resources = {});
    ~AppDelegate() override;

    /// Shows the shelf and the status item and starts listening. Call it once.
    void launch();

    [[nodiscard]] ShelfModel &model() { return m_model; }
    [[nodiscard]] ShelfLibrary &library() { return m_library; }
    [[nodiscard]] Productivity &productivity() { return m_productivity; }
    [[nodiscard]] VolumeMixer &mixer() { return m_mixer; }
    /// Made on first use.
    [[nodiscard]] ShelfExtras &extras();

    /// The shelf was opened by keyboard or click, so that hovering neither opens nor closes it.
    [[nodiscard]] bool keyboardOpen() const { return m_keyboardOpen; }
    /// A window once it was made.
    [[nodiscard]] QWindow *toolsWindow() const { return m_toolsWindow.get(); }
    [[nodiscard]] QWindow *settingsWindow() const { return m_settingsWindow.get(); }
    [[nodiscard]] QWindow *mixerWindow() const { return m_mixerWindow.get(); }

    // ShellActions
    void showShelf() override;
    void showSettings() override;
    void showTools() override;
    void showMixer() override;
    void showSearch() override;
    void clearScreen() override;
    void launch(const QString &id) override;
    void terminate() override;
    void toggleKeyboardOpen() override;
    bool takeKeyboard() override;
    void returnKeyboard() override;
    void resize() override;
    void handlePressed() override;
    void handleMoved() override;
    void handleReleased() override;
    void handleCanceled() override;

    /// Performs what a second start or the desktop asks of the running program.
    void perform(const QString &action);

    /// The display that the shelf uses; nothing when there is none.
    [[nodiscard]] std::optional<Display> shelfScreen() const;
    /// Where the preferences put the shelf.
    [[nodiscard]] ShelfPosition dockPosition() const;
    /// The panel's frame in either size; empty without a display.
    [[nodiscard]] ScreenRect shelfFrame(ShelfSize size) const;

    /// Compares the pointer with the shelf, and opens it or begins to close it.
    void checkHover();
    /// Opens or closes the shelf.
    void setExpanded(bool expanded);

    /// A drag that started at that point; the shelf collapses and follows the pointer.
    void beginShelfDrag(ScreenPoint start);
    void moveShelfDrag(ScreenPoint pointer);
    /// Docks the shelf at the edge nearest to the point and stores the place.
    void endShelfDrag(ScreenPoint point);

    /// What to do with a key press in one of the program's windows; true when it was used up.
    [[nodiscard]] bool handleKey(const KeyPress &press);

private:
    // ShelfHover.cpp
    void startCloseTask();
    void startSettleTask();
    void setKeyboardOpen(bool open);
    void onPointerCrossing();
    void watchForJumps(ScreenPoint pointer);
    // ShelfPlacement.cpp
    [[nodiscard]] static DisplayGeometry geometryOf(const Display &display);
    void placePanel(ShelfSize size);
    void setPanelFrame(const ScreenRect &frame, const ScreenRect &compactFrame);
    // ShelfDrag.cpp
    [[nodiscard]] ScreenPoint handlePosition() const;
    // ShelfKeys.cpp
    [[nodiscard]] bool handleShelfKey(const KeyPress &press);
    [[nodiscard]] bool launchShown(const KeyPress &press);
    void launch(const ShelfItem &item);
    // AppDelegate.cpp
    void showStatusItem();
    void show(std::unique_ptr<AuxiliaryWindow> &window, const WindowContent &content);

    Hosts &m_hosts;
    ShellResources m_resources;
    FieldPasting m_fieldPasting;
    ShelfPreferences m_shelfPreferences;
    QQmlEngine m_engine; // one for all windows: each of its own would cost memory and time

    ShelfModel m_model;
    MediaTracking m_media;
    ShelfLibrary m_library;
    Productivity m_productivity;
    VolumeMixer m_mixer;
    std::unique_ptr<ShelfExtras> m_extras;
    std::unique_ptr<AuxiliaryWindow> m_mixerWindow;
    ShelfHotKey m_hotKey;
    std::unique_ptr<AuxiliaryWindow> m_toolsWindow;
    bool m_keyboardOpen = false;
    bool m_keyboardBorrowed = false; ///< taken outside keyboard mode
    std::unique_ptr<DisplayPreferences> m_displayPreferences;
    std::unique_ptr<AuxiliaryWindow> m_settingsWindow;
    std::unique_ptr<ShelfPanel> m_panel;
    ShelfHeaderView m_headerView;
    Task m_closeTask;
    Task m_settleTask;
    ScreenPoint m_dragOffset;
};

} // namespace perchly
