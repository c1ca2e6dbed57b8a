#pragma once

#include <QLatin1StringView>

/// The names under which preferences are stored. The area that owns a key gives its type and
/// default.
namespace perchly::keys {

inline constexpr QLatin1StringView displayIndex("displayIndex");
inline constexpr QLatin1StringView displayConnector("displayConnector");
inline constexpr QLatin1StringView shelfEdge("shelfEdge");
inline constexpr QLatin1StringView shelfEdgePosition("shelfEdgePosition");
inline constexpr QLatin1StringView shelfScale("shelfScale");
inline constexpr QLatin1StringView hoverDelay("hoverDelay");
inline constexpr QLatin1StringView openingDelay("openingDelay");
inline constexpr QLatin1StringView overPanels("overPanels");
inline constexpr QLatin1StringView openOnHover("openOnHover");
inline constexpr QLatin1StringView shelfTheme("shelfTheme");
inline constexpr QLatin1StringView shelfAccent("shelfAccent");
inline constexpr QLatin1StringView shelfOpacity("shelfOpacity");
inline constexpr QLatin1StringView compactMode("compactMode");

inline constexpr QLatin1StringView announceFocus("announceFocus");
inline constexpr QLatin1StringView announceShortcuts("announceShortcuts");
inline constexpr QLatin1StringView announceCaptures("announceCaptures");
inline constexpr QLatin1StringView announceFailures("announceFailures");
inline constexpr QLatin1StringView announceMeetings("announceMeetings");

inline constexpr QLatin1StringView toggleChord("toggleChord");
inline constexpr QLatin1StringView searchChord("searchChord");
/// Whether the user has dismissed the hint to bind commands to keys.
inline constexpr QLatin1StringView knowsToBindKeys("knowsToBindKeys");

inline constexpr QLatin1StringView leftWidget("leftWidget");
inline constexpr QLatin1StringView rightWidget("rightWidget");
inline constexpr QLatin1StringView quickNote("quickNote");

inline constexpr QLatin1StringView focusMinutes("focusMinutes");
inline constexpr QLatin1StringView breakMinutes("breakMinutes");
inline constexpr int defaultFocusMinutes = 25;
inline constexpr int defaultBreakMinutes = 5;
inline constexpr QLatin1StringView focusDay("focusDay");
inline constexpr QLatin1StringView focusSessions("focusSessions");
inline constexpr QLatin1StringView focusTotalMinutes("focusTotalMinutes");

inline constexpr QLatin1StringView shelfLibrary("shelfLibrary");
inline constexpr QLatin1StringView favoritesOnly("favoritesOnly");

inline constexpr QLatin1StringView savedLayouts("savedLayouts");

inline constexpr QLatin1StringView launchGroups("launchGroups");
inline constexpr QLatin1StringView persistSnippets("persistSnippets");
inline constexpr QLatin1StringView pinnedSnippets("pinnedSnippets");

/// Keys with long values. Each is stored in a file of its own, so that other changes do not rewrite
/// it.
inline constexpr QLatin1StringView longValues[] = {quickNote, shelfLibrary, savedLayouts,
                                                   launchGroups, pinnedSnippets};

} // namespace perchly::keys
