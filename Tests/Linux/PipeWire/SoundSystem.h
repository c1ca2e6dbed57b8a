#pragma once

#include "PipeWireAudioSystem.h"
#include "TapPlayback.h"

#include <QProcess>
#include <QTemporaryDir>

#include <memory>
#include <optional>

namespace perchly {

/// Amplitude of the tone that players play.
constexpr float toneLevel = 0.25F;

/// A program that plays a tone through PipeWire ("pw-cat") or its PulseAudio server ("paplay").
class Player {
public:
    explicit Player(const QString &program, const QStringList &arguments = {});
    ~Player();
    Q_DISABLE_COPY_MOVE(Player)

    [[nodiscard]] std::int32_t pid() const { return std::int32_t(m_process.processId()); }
    void pause() const;
    void resume() const;
    /// Ends it at once.
    void end();

private:
    QProcess m_process;
};

/// Runs a tool of the sound system and answers with what it said.
QString told(const QString &program, const QStringList &arguments);

/// The nodes, metadata entries and links that bear the program's name.
QStringList tracesOfRoutes();

/// The audio system under test, started and complete.
class SoundSystem {
public:
    SoundSystem();

    [[nodiscard]] std::optional<AudioProcess> process(std::int32_t pid) const;
    /// 0 if the process does not play within a while.
    [[nodiscard]] AudioObject waitForProcess(std::int32_t pid) const;
    [[nodiscard]] std::shared_ptr<TapPlayback> route(const Player &player);

    PipeWireAudioSystem system;
};

} // namespace perchly
