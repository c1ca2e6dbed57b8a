#pragma once

#include "FakeAudio.h"
#include "FakeCalendarStore.h"
#include "FakeClock.h"
#include "FakePasteboard.h"
#include "FakePlatform.h"
#include "FakePreferences.h"
#include "FakeScriptHost.h"
#include "NullHosts.h"

namespace perchly {

/// Fake hosts, and null hosts where no test needs more. Give `hosts` to the program; the fakes live
/// as long as `hosts`.
class FakeHosts {
    template <class Fake>
    static Fake &install(auto &field) {
        field = std::make_unique<Fake>();
        return static_cast<Fake &>(*field);
    }

public:
    Hosts hosts = nullHosts();
    FakeClock &clock = install<FakeClock>(hosts.clock);
    FakePreferences &preferences = install<FakePreferences>(hosts.preferences);
    FakeDisplays &displays = install<FakeDisplays>(hosts.displays);
    FakePointer &pointer = install<FakePointer>(hosts.pointer);
    FakeKeys &keys = install<FakeKeys>(hosts.keys);
    FakePanelHost &panel = install<FakePanelHost>(hosts.panel);
    FakeHotKeys &hotKeys = install<FakeHotKeys>(hosts.hotKeys);
    FakeContextMenu &contextMenu = install<FakeContextMenu>(hosts.contextMenu);
    FakeApplications &applications = install<FakeApplications>(hosts.applications);
    FakeApplicationCatalog &catalog = install<FakeApplicationCatalog>(hosts.catalog);
    FakeOpenPanel &openPanel = install<FakeOpenPanel>(hosts.openPanel);
    LoginItem &loginItem = *hosts.loginItem;
    FakeMotion &motion = install<FakeMotion>(hosts.motion);
    FakeAlertSound &alertSound = install<FakeAlertSound>(hosts.alertSound);
    FakeScriptHost &scriptHost = install<FakeScriptHost>(hosts.scriptHost);
    FakePlayerNotifications &playerNotifications =
        install<FakePlayerNotifications>(hosts.playerNotifications);
    FakeMusicPlayer &musicPlayer = install<FakeMusicPlayer>(hosts.musicPlayer);
    FakePasteboard &pasteboard = install<FakePasteboard>(hosts.pasteboard);
    FakePictureReader &pictures = install<FakePictureReader>(hosts.pictures);
    FakeAudioSystem &audio = install<FakeAudioSystem>(hosts.audio);
    FakeShortcutsTool &shortcuts = install<FakeShortcutsTool>(hosts.shortcuts);
    FakeCalendarStore &calendars = install<FakeCalendarStore>(hosts.calendars);
    FakePowerSources &power = install<FakePowerSources>(hosts.power);
    FakeScreenCapture &screenCapture = install<FakeScreenCapture>(hosts.screenCapture);
    FakeNotifications &notifications = install<FakeNotifications>(hosts.notifications);
    FakeQuickLook &quickLook = install<FakeQuickLook>(hosts.quickLook);
};

} // namespace perchly
