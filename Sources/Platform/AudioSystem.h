#pragma once

#include "AudioRoute.h"

#include <QList>
#include <QObject>
#include <QString>

#include <memory>
#include <optional>

struct AudioRingBuffer;

namespace perchly {

/// A process that uses the audio system; unknown fields are empty.
struct AudioProcess {
    AudioObject object = 0;
    std::optional<std::int32_t> pid;
    std::optional<bool> isRunningOutput;
    std::optional<QString> bundleId;
    bool isSandboxed = false; ///< its PID may be the sandbox's, not the system's

    friend bool operator==(const AudioProcess &, const AudioProcess &) = default;
};

/// A running application, as its desktop entry describes it.
struct RunningApplication {
    QString name; ///< in the user's language; never empty
    QString path; ///< of its desktop entry, for Applications::icon; empty if it has none
};

/// The processes that play audio, the default output device, and routes. All getters return the
/// last announced state: they are cheap and never block. Main thread only.
class AudioSystem : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Starts following the audio system, even if it starts later or restarts. Call it once; until
    /// then all getters are empty.
    virtual void start() = 0;

    /// Whether there is an audio system that can route a single process.
    [[nodiscard]] virtual bool canRouteProcesses() const = 0;

    /// The default output device; 0 if it cannot be read.
    [[nodiscard]] virtual AudioObject defaultOutput() const = 0;

    /// In the audio system's order; nullopt if the list cannot be read.
    [[nodiscard]] virtual std::optional<QList<AudioProcess>> processes() const = 0;

    /// The running application that owns the process, if any. Looked up when the process starts to
    /// play; until that is done, only the name that the process reports is known.
    [[nodiscard]] virtual std::optional<RunningApplication>
    application(AudioObject process) const = 0;

    /// Routes the process through the ring to the default output: real-time threads push the
    /// process's sound and pull it for the output, until a few seconds after the route is
    /// destroyed, when the process is back on its own output. The system must outlive the route. On
    /// failure it returns null and sets `error` to a text for the user.
    [[nodiscard]] virtual std::unique_ptr<AudioRoute>
    route(AudioObject process, std::shared_ptr<AudioRingBuffer> ring, QString &error) = 0;

Q_SIGNALS:
    /// A getter's result may have changed. Several quick changes are announced once.
    void changed();
};

} // namespace perchly
