#pragma once

#include "HotKeys.h"
#include "PortalRequest.h"
#include "SessionBus.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QHash>
#include <QSet>

#include <memory>

namespace perchly {

/// A shortcut in the portal's calls.
struct PortalShortcut {
    QString identifier;
    QVariantMap options;
};
QDBusArgument &operator<<(QDBusArgument &argument, const PortalShortcut &shortcut);
const QDBusArgument &operator>>(const QDBusArgument &argument, PortalShortcut &shortcut);

/// Chords of the desktop's portal GlobalShortcuts, which may ask the user and choose other keys. A
/// chord counts as registered until the portal refuses; then keyboardChanged() is emitted.
class PortalHotKeys : public HotKeys {
    Q_OBJECT
public:
    /// `names` are those of the identifiers from 0 on, as the user reads them. Nothing else may
    /// call portals on that connection: they take the application only before the first call.
    PortalHotKeys(std::shared_ptr<SessionBus> bus, QStringList names);
    ~PortalHotKeys() override;

    [[nodiscard]] bool registerChord(int identifier, QKeyCombination chord) override;
    void releaseChord(int identifier) override;
    void setKeyboardGrabbed(bool) override {}
    [[nodiscard]] bool isSupported() const override { return m_isSupported; }

private Q_SLOTS:
    void onActivated(const QDBusObjectPath &session, const QString &identifier, qulonglong time,
                     const QVariantMap &options);

private:
    void begin();
    void createSession();
    void end();
    void bind();
    void refuse();

    const std::shared_ptr<SessionBus> m_bus;
    const QStringList m_names;
    QHash<int, QKeyCombination> m_chords;
    QSet<int> m_released;
    QTimer m_begin;                           ///< once all chords are registered
    std::unique_ptr<PortalRequest> m_request; ///< the last one
    QString m_session;
    bool m_isSupported = true;
};

} // namespace perchly
