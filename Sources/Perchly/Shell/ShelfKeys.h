#pragma once

namespace perchly {

class PanelHost;
class ShelfHotKey;
class ShelfLibrary;
class ShelfModel;
class ShelfOpener;
class ShellActions;
struct KeyPress;

/// Handles the shelf's keys while it has the keyboard, and the status menu's keys in all of the
/// program's windows. The arguments must outlive it. Main thread only.
class ShelfKeys {
public:
    ShelfKeys(PanelHost &panel, ShelfModel &model, const ShelfLibrary &library, ShelfOpener &opener,
              const ShelfHotKey &hotKey, ShellActions &shell);

    /// True if the press was used.
    [[nodiscard]] bool handle(const KeyPress &press);

private:
    [[nodiscard]] bool handleMenuKey(const KeyPress &press);
    [[nodiscard]] bool handleEscape(const KeyPress &press);
    [[nodiscard]] bool launchShown(const KeyPress &press);

    PanelHost &m_panel;
    ShelfModel &m_model;
    const ShelfLibrary &m_library;
    ShelfOpener &m_opener;
    const ShelfHotKey &m_hotKey;
    ShellActions &m_shell;
};

} // namespace perchly
