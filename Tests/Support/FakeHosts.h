#pragma once

#include "FakeAudio.h"
#include "FakeCalendarStore.h"
#include "FakeClock.h"
#include "FakePasteboard.h"
#include "FakePlatform.h"
#include "FakePreferences.h"
#include "FakeScriptHost.h"
#include "Hosts.h"

namespace perchly {

/// A complete platform of fakes. The program is given `hosts`; the test holds the fakes themselves,
/// which live as long as `hosts` does.
class FakeHosts {
    template <class Fake, class Interface>
    static Fake &install(std::unique_ptr<Interface> &field) {
        auto fake = std::make_unique<Fake>();
        Fake &reference = *fake;
        field = std::move(fake);
        return reference;
    }

public:
    Hosts hosts;
    FakeClock &clock = install<FakeClock>(hosts.clock);
    FakePreferences &preferences = install<FakePreferences>(hosts.preferences);
    FakeDisplays &displays = install<FakeDisplays>(hosts.displays);
    FakePointer &pointer = install<FakePointer>(hosts.pointer);
    FakeKeys &keys = install<FakeKeys>(hosts.keys);
    FakePanelHost &panel = install<FakePanelHost>(hosts.panel);
    FakeHotKeys &hotKeys = install<FakeHotKeys>(hosts.hotKeys);
    FakeStatusItem &statusItem = install<FakeStatusItem>(hosts.statusItem);
    FakeApplications &applications = install<FakeApplications>(hosts.applications);
    FakeApplicationCatalog &catalog = install<FakeApplicationCatalog>(hosts.catalog);
    FakeOpenPanel &openPanel = install<FakeOpenPanel>(hosts.openPanel);
    FakeLoginItem &loginItem = install<FakeLoginItem>(hosts.loginItem);
    FakeMotion &motion = install<FakeMotion>(hosts.motion);
    FakeAlertSound &alertSound = install<FakeAlertSound>(hosts.alertSound);
    FakeScriptHost &scriptHost = install<FakeScriptHost>(hosts.scriptHost);
    FakePlayerNotifications &playerNotifications =
        install<FakePlayerNotifications>(hosts.playerNotifications);
    FakeMusicPlayer &musicPlayer = install<FakeMusicPlayer>(hosts.musicPlayer);
    FakePasteboard &pasteboard = install<FakePasteboard>(hosts.pasteboard);
    FakeAudioSystem &audio = install<FakeAudioSystem>(hosts.audio);
    FakeShortcutsTool &shortcuts = install<FakeShortcutsTool>(hosts.shortcuts);
    FakeFileServices &fileServices = install<FakeFileServices>(hosts.fileServices);
    FakeCalendarStore &calendars = install<FakeCalendarStore>(hosts.calendars);
    FakePowerSources &power = install<FakePowerSources>(hosts.power);
    FakeScreenCapture &screenCapture = install<FakeScreenCapture>(hosts.screenCapture);
    FakeQuickLook &quickLook = install<FakeQuickLook>(hosts.quickLook);
};

} // namespace perchly
