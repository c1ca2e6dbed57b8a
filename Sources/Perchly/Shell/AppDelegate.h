#pragma once

#include "Announcements.h"
#include "AuxiliaryWindow.h"
#include "FieldPasting.h"
#include "MediaTracking.h"
#include "Productivity.h"
#include "ShelfDrag.h"
#include "ShelfExtras.h"
#include "ShelfHotKey.h"
#include "ShelfKeys.h"
#include "ShelfLibrary.h"
#include "ShelfModel.h"
#include "ShelfOpener.h"
#include "ShelfPanel.h"
#include "ShelfPlacement.h"
#include "ShelfPreferences.h"
#include "ShellActions.h"
#include "SingleInstance.h"
#include "StatusItem.h"
#include "VolumeMixer.h"

#include <QIcon>
#include <QQmlEngine>
#include <QUrl>

#include <memory>

namespace perchly {

struct Hosts;

/// The icon and views that Program.cpp passes to the shell. An empty view leaves its window empty.
struct ShellResources {
    QIcon statusIcon = {}; ///< also the windows' icon
    QUrl shelfView = {};
    QUrl settingsView = {};
    QUrl toolsView = {};
    QUrl mixerView = {};
};

/// Owns every store and window for the whole run, and the objects that place, open and drag the
/// shelf and handle its keys. Main thread only.
class AppDelegate : public ShellActions {
    Q_OBJECT
public:
    /// Creates the stores. The hosts must outlive the delegate.
    explicit AppDelegate(Hosts &hosts, ShellResources resources = {});
    ~AppDelegate() override;

    /// Shows the shelf and the status item and starts listening. Call it once.
    void launch();

    [[nodiscard]] ShelfModel &model() { return m_model; }
    [[nodiscard]] ShelfLibrary &library() { return m_library; }
    [[nodiscard]] Productivity &productivity() { return m_productivity; }
    /// Created on first use.
    [[nodiscard]] ShelfExtras &extras();
    [[nodiscard]] ShelfOpener &opener() { return m_opener; }

    // ShellActions
    void showShelf() override { m_opener.setExpanded(true); }
    void showSettings() override;
    void showTools() override;
    void showMixer() override;
    void showSearch() override;
    void clearScreen() override;
    void launch(const QString &id) override {
        launch(id, [](const QString &) {});
    }
    void showMenu(QPointF position, bool byKey) override;
    void showEntryMenu(const QString &id, QObject *tile, QPointF position, bool byKey) override;
    void terminate() override;
    void toggleKeyboardOpen() override { m_opener.toggleKeyboardOpen(); }
    bool takeKeyboard() override { return m_opener.takeKeyboard(); }
    void returnKeyboard() override { m_opener.returnKeyboard(); }
    void resize() override { m_placement.update(); }
    void handlePressed() override { m_drag.press(handlePosition()); }
    void handleMoved() override { m_drag.move(handlePosition()); }
    void handleReleased() override { m_drag.release(handlePosition()); }
    void handleCanceled() override { m_drag.cancel(handlePosition()); }

    using Answer = SingleInstance::Answer;
    /// Performs a command of a shell or another program; see command::problem(). Answers at once,
    /// but to a launch when that has worked or failed, within 1.5 s.
    void perform(const QStringList &command, const Answer &answer);

private:
    [[nodiscard]] QString perform(const QStringList &command);
    [[nodiscard]] QString perform(const QString &name, const QStringList &arguments);
    void launchNamed(const QString &entry, const Answer &answer);
    void launchGroup(const QString &name, const Answer &answer);
    [[nodiscard]] Answer inTime(const Answer &answer);
    void launch(const QString &id, const Answer &answer);
    void closeAfterLaunch();
    void hideShelf();
    void followPointer();
    void pointerAt(ScreenPoint pointer);
    [[nodiscard]] ScreenPoint handlePosition() const;
    void checkPointer();
    [[nodiscard]] QList<StatusMenuEntry> menu();
    void openMenu(const QList<StatusMenuEntry> &entries, QPointF position, bool byKey);
    void show(std::unique_ptr<AuxiliaryWindow> &window, const WindowContent &content);

    Hosts &m_hosts;
    ShellResources m_resources;
    FieldPasting m_fieldPasting;
    ShelfPreferences m_shelfPreferences;
    QQmlEngine m_engine; // shared by all windows, to save memory and time

    ShelfModel m_model;
    MediaTracking m_media;
    ShelfLibrary m_library;
    Productivity m_productivity;
    VolumeMixer m_mixer;
    std::unique_ptr<ShelfExtras> m_extras;

    ShelfPanel m_panel;
    ShelfPlacement m_placement;
    ShelfOpener m_opener;
    ShelfDrag m_drag;
    ShelfHotKey m_hotKey;
    ShelfKeys m_keys;
    Task m_launched; ///< closes the shelf in keyboard mode
    std::unique_ptr<Announcements> m_announcements;
    std::unique_ptr<AuxiliaryWindow> m_mixerWindow;
    std::unique_ptr<AuxiliaryWindow> m_toolsWindow;
    std::unique_ptr<AuxiliaryWindow> m_settingsWindow;
};

} // namespace perchly
