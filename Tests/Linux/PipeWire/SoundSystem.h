#pragma once

#include "MixerRoute.h"
#include "PipeWireAudioSystem.h"

#include <QProcess>
#include <QTemporaryDir>

#include <memory>
#include <optional>

namespace perchly {

/// Amplitude of the tone that players play.
constexpr float toneLevel = 0.25F;

/// A running program. It is killed with this.
class Program {
public:
    Program(const QString &program, const QStringList &arguments);
    ~Program();
    Q_DISABLE_COPY_MOVE(Program)

    [[nodiscard]] std::int32_t pid() const { return std::int32_t(m_process.processId()); }
    /// Writes to stdin.
    void tell(const char *text);
    /// Waits for a line on stdout.
    [[nodiscard]] bool waitForLine();
    /// Closes stdin and waits for the end.
    void quit();
    /// kill -9.
    void kill();

private:
    QProcess m_process;
};

/// A PulseAudio client that plays the tone, with properties as in PULSE_PROP.
std::unique_ptr<Program> pulsePlayer(const QString &properties = {});
/// A native client that plays the tone through one stream; see TonePlayer.cpp.
std::unique_ptr<Program> nativePlayer(const QStringList &arguments = {});
/// A program that mutes another one; see RouteOwner.cpp.
std::unique_ptr<Program> routeOwner(const Program &player);

/// Runs a command of words without spaces while the event loop goes on; returns its stdout.
QString output(const QString &command);

/// The nodes of routes, and where streams were sent.
QString tracesOfRoutes();

/// The audio system under test, started and complete.
class SoundSystem {
public:
    explicit SoundSystem(PipeWireAudioSystem::ApplicationFinder find = {});

    [[nodiscard]] std::optional<AudioProcess> process(std::int32_t pid) const;
    /// 0 if the process does not play within a while.
    [[nodiscard]] AudioObject waitForProcess(std::int32_t pid) const;
    /// The player's route, once it plays.
    [[nodiscard]] std::unique_ptr<MixerRoute> route(const Program &player, float gain = 1);

    PipeWireAudioSystem system;
};

} // namespace perchly
