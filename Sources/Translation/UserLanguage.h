#pragma once

namespace perchly {

/// Loads the built-in texts in the user's first language, and Qt's own if they are installed. Loads
/// nothing if that language is English or has no texts. Call it once, on the main thread, after
/// creating the application object and before creating any text.
void loadUserLanguage();

} // namespace perchly
