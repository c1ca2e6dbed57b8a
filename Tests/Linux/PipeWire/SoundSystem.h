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

/// A program that a test has started. It ends with this.
class Program {
public:
    Program(const QString &program, const QStringList &arguments);
    ~Program();
    Q_DISABLE_COPY_MOVE(Program)

    [[nodiscard]] std::int32_t pid() const { return std::int32_t(m_process.processId()); }
    /// Writes to its standard input.
    void tell(const char *text);
    /// Waits for a line of its standard output.
    [[nodiscard]] bool waitForWord();
    /// Ends its standard input and waits for it.
    void quit();
    /// kill -9.
    void kill();

private:
    QProcess m_process;
};

/// A PulseAudio client that plays the tone and says this of itself.
std::unique_ptr<Program> pulsePlayer(const QString &properties = {});
/// A native client that plays the tone through one stream; see TonePlayer.cpp.
std::unique_ptr<Program> nativePlayer(const QStringList &arguments = {});
/// A program that mutes another one; see RouteOwner.cpp.
std::unique_ptr<Program> routeOwner(const Program &player);

/// Runs a tool of the sound system and answers with what it said.
QString told(const QString &program, const QStringList &arguments);

/// What the sound system knows about routes: nodes, links and where streams were sent.
QString tracesOfRoutes();

/// The audio system under test, started and complete.
class SoundSystem {
public:
    explicit SoundSystem(PipeWireAudioSystem::ApplicationFinder find = {});

    [[nodiscard]] std::optional<AudioProcess> process(std::int32_t pid) const;
    /// 0 if the process does not play within a while.
    [[nodiscard]] AudioObject waitForProcess(std::int32_t pid) const;
    [[nodiscard]] std::shared_ptr<TapPlayback> route(const Program &player);

    PipeWireAudioSystem system;
};

} // namespace perchly
