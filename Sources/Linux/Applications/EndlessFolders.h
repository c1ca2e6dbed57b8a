#pragma once

namespace perchly {

/// Hides data folders from GLib whose `applications` folder has more than 5,000 subfolders, for
/// example because links in it lead back to it. GIO would visit each of them up to 40 levels deep,
/// and lock every other search for applications meanwhile. Names hidden folders on stderr.
/// Call it before GLib is used and before threads start: it changes the environment for a moment.
void hideEndlessApplicationFolders();

} // namespace perchly
