#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>

#include <optional>

namespace perchly {

/// A player on the bus that plays by the test's script; see scripted_player.py. It is there once
/// the constructor returns, and gone after the destructor.
class PlayerProcess {
public:
    explicit PlayerProcess(const char *name, const QByteArray &script = "{}");
    ~PlayerProcess();
    PlayerProcess(const PlayerProcess &) = delete;
    PlayerProcess &operator=(const PlayerProcess &) = delete;

    /// The commands that reached it since the last call.
    [[nodiscard]] QStringList commands();

    [[nodiscard]] bool isReady() const { return m_ready; }

private:
    QProcess m_process;
    bool m_ready = false;
};

/// Runs the real companion; nothing when it failed.
[[nodiscard]] std::optional<QByteArray> runCompanion(const QStringList &arguments);
[[nodiscard]] std::optional<QByteArray> runJavaScript(const QString &script);
/// What the companion's reading says: an object, null for no player, undefined for a failure.
[[nodiscard]] QJsonValue readSession();

} // namespace perchly
