#pragma once

#include "FakeApplicationCatalog.h"
#include "FakeAudio.h"
#include "FakeCalendarStore.h"
#include "FakeClock.h"
#include "FakeFileServices.h"
#include "FakeLoginItem.h"
#include "FakeOpenPanel.h"
#include "FakePasteboard.h"
#include "FakePlatform.h"
#include "FakePowerSources.h"
#include "FakePreferences.h"
#include "FakeQuickLook.h"
#include "FakeScreenCapture.h"
#include "FakeScriptHost.h"
#include "FakeShortcutsTool.h"
#include "Hosts.h"

namespace perchly {

/// A complete platform of fakes. The program is given `hosts`; the test holds the fakes themselves,
/// which live as long as `hosts` does.
struct FakeHosts {
    FakeHosts();

    Hosts hosts;
    FakeClock &clock;
    FakePreferences &preferences;
    FakeDisplays &displays;
    FakePointer &pointer;
    FakeKeys &keys;
    FakePanelHost &panel;
    FakeHotKeys &hotKeys;
    FakeStatusItem &statusItem;
    FakeApplications &applications;
    FakeApplicationCatalog &catalog;
    FakeOpenPanel &openPanel;
    FakeLoginItem &loginItem;
    FakeMotion &motion;
    FakeAlertSound &alertSound;
    FakeScriptHost &scriptHost;
    FakePlayerNotifications &playerNotifications;
    FakeMusicPlayer &musicPlayer;
    FakePasteboard &pasteboard;
    FakeAudioSystem &audio;
    FakeShortcutsTool &shortcuts;
    FakeFileServices &fileServices;
    FakeCalendarStore &calendars;
    FakePowerSources &power;
    FakeScreenCapture &screenCapture;
    FakeQuickLook &quickLook;
};

} // namespace perchly
