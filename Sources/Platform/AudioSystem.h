#pragma once

#include "AudioRoute.h"

#include <QList>
#include <QObject>
#include <QString>

#include <memory>
#include <optional>

struct AudioRingBuffer;

namespace perchly {

/// A process that has opened the audio system, as far as it can be read.
struct AudioProcess {
    AudioObject object = 0;
    std::optional<std::int32_t> pid;
    std::optional<bool> isRunningOutput;
    std::optional<QString> bundleId;
    bool isSandboxed = false; ///< its identifier may be its sandbox's own, not the system's

    friend bool operator==(const AudioProcess &, const AudioProcess &) = default;
};

/// A running application, as its desktop entry describes it.
struct RunningApplication {
    QString name; ///< in the user's language; never empty
    QString path; ///< of its desktop entry, for Applications::icon; empty when it has none
};

/// The processes that play audio, the default output device, and routes. All getters return what
/// the audio system has announced: they are cheap and never block. Main thread only.
class AudioSystem : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Starts following the audio system, also one that starts later or restarts. Call it once;
    /// before, all getters are empty.
    virtual void start() = 0;

    /// Whether there is an audio system that can route a single process.
    [[nodiscard]] virtual bool canRouteProcesses() const = 0;

    /// The default output device; 0 when it cannot be read.
    [[nodiscard]] virtual AudioObject defaultOutput() const = 0;

    /// In the audio system's order; nothing when the list cannot be read.
    [[nodiscard]] virtual std::optional<QList<AudioProcess>> processes() const = 0;

    /// The running application that the process is, if it is one. Looked up when the process begins
    /// to play; until that is done, only the name that it gives itself is known.
    [[nodiscard]] virtual std::optional<RunningApplication>
    application(AudioObject process) const = 0;

    /// Routes the process through the ring to the default output: real-time threads push its
    /// sound and pull the output's, until its own output is back, a few seconds after the route
    /// was destroyed. The system outlives the route. Null if it cannot be started; the error then
    /// says why, for the user.
    [[nodiscard]] virtual std::unique_ptr<AudioRoute>
    route(AudioObject process, std::shared_ptr<AudioRingBuffer> ring, QString &error) = 0;

Q_SIGNALS:
    /// An answer above may be another now. Several changes in quick succession are told once.
    void changed();
};

} // namespace perchly
