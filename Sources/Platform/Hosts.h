#pragma once

#include "AlertSound.h"
#include "Appearance.h"
#include "ApplicationCatalog.h"
#include "Applications.h"
#include "AudioSystem.h"
#include "CalendarStore.h"
#include "Clock.h"
#include "ContextMenu.h"
#include "Displays.h"
#include "FilePictures.h"
#include "FileServices.h"
#include "HotKeys.h"
#include "KeyMonitor.h"
#include "LoginItem.h"
#include "Motion.h"
#include "MusicPlayer.h"
#include "Notifications.h"
#include "OpenPanel.h"
#include "PanelHost.h"
#include "Pasteboard.h"
#include "PictureReader.h"
#include "PlayerNotifications.h"
#include "PointerMonitor.h"
#include "PowerSources.h"
#include "Preferences.h"
#include "QuickLook.h"
#include "ScreenCapture.h"
#include "ScriptHost.h"
#include "ShortcutsTool.h"
#include "StatusItem.h"

#include <memory>

namespace perchly {

/// The interfaces to everything outside the program. No field is ever empty: a missing host is
/// replaced by a null implementation. Members are destroyed in reverse order.
struct Hosts {
    std::unique_ptr<Clock> clock;
    std::unique_ptr<Preferences> preferences;
    std::unique_ptr<Displays> displays;
    std::unique_ptr<PointerMonitor> pointer;
    std::unique_ptr<KeyMonitor> keys;
    std::unique_ptr<PanelHost> panel;
    std::unique_ptr<HotKeys> hotKeys;
    std::unique_ptr<StatusItem> statusItem;
    std::unique_ptr<ContextMenu> contextMenu;
    std::unique_ptr<Applications> applications;
    std::unique_ptr<ApplicationCatalog> catalog;
    std::unique_ptr<OpenPanel> openPanel;
    std::unique_ptr<LoginItem> loginItem;
    std::unique_ptr<Motion> motion;
    std::unique_ptr<Appearance> appearance;
    std::unique_ptr<AlertSound> alertSound;
    std::unique_ptr<ScriptHost> scriptHost;
    std::unique_ptr<PlayerNotifications> playerNotifications;
    std::unique_ptr<MusicPlayer> musicPlayer;
    std::unique_ptr<Pasteboard> pasteboard;
    std::unique_ptr<PictureReader> pictures;
    std::unique_ptr<FilePictures> filePictures;
    std::unique_ptr<AudioSystem> audio;
    std::unique_ptr<ShortcutsTool> shortcuts;
    std::unique_ptr<FileServices> fileServices;
    std::unique_ptr<CalendarStore> calendars;
    std::unique_ptr<PowerSources> power;
    std::unique_ptr<ScreenCapture> screenCapture;
    std::unique_ptr<QuickLook> quickLook;
    std::unique_ptr<Notifications> notifications;
};

} // namespace perchly
