#pragma once

namespace perchly {

/// Loads the built-in texts in the user's first language, and Qt's own if they are installed; only
/// English plurals if it has none. Call it once, on the main thread, after creating the application
/// object and before creating any text.
void loadUserLanguage();

/// The same for a process without an application object, which prints a text and ends. Does nothing
/// if there is an object. Main thread only.
void loadUserLanguageToPrint();

} // namespace perchly
