#include "FakeHosts.h"

namespace perchly {

namespace {

template <class Fake, class Interface>
Fake &install(std::unique_ptr<Interface> &field) {
    auto fake = std::make_unique<Fake>();
    Fake &reference = *fake;
    field = std::move(fake);
    return reference;
}

} // namespace

FakeHosts::FakeHosts()
    : clock(install<FakeClock>(hosts.clock))
    , preferences(install<FakePreferences>(hosts.preferences))
    , displays(install<FakeDisplays>(hosts.displays))
    , pointer(install<FakePointer>(hosts.pointer))
    , keys(install<FakeKeys>(hosts.keys))
    , panel(install<FakePanelHost>(hosts.panel))
    , hotKeys(install<FakeHotKeys>(hosts.hotKeys))
    , statusItem(install<FakeStatusItem>(hosts.statusItem))
    , applications(install<FakeApplications>(hosts.applications))
    , catalog(install<FakeApplicationCatalog>(hosts.catalog))
    , openPanel(install<FakeOpenPanel>(hosts.openPanel))
    , loginItem(install<FakeLoginItem>(hosts.loginItem))
    , motion(install<FakeMotion>(hosts.motion))
    , alertSound(install<FakeAlertSound>(hosts.alertSound))
    , scriptHost(install<FakeScriptHost>(hosts.scriptHost))
    , playerNotifications(install<FakePlayerNotifications>(hosts.playerNotifications))
    , musicPlayer(install<FakeMusicPlayer>(hosts.musicPlayer))
    , pasteboard(install<FakePasteboard>(hosts.pasteboard))
    , audio(install<FakeAudioSystem>(hosts.audio))
    , shortcuts(install<FakeShortcutsTool>(hosts.shortcuts))
    , fileServices(install<FakeFileServices>(hosts.fileServices))
    , calendars(install<FakeCalendarStore>(hosts.calendars))
    , power(install<FakePowerSources>(hosts.power))
    , screenCapture(install<FakeScreenCapture>(hosts.screenCapture))
    , quickLook(install<FakeQuickLook>(hosts.quickLook)) {}

} // namespace perchly
