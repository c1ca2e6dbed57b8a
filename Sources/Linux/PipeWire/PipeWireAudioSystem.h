#pragma once

#include "AudioGraph.h"
#include "AudioSystem.h"
#include "PipeWireConnection.h"
#include "RetiredStreams.h"
#include "RouteKeeper.h"
#include "Workers.h"

#include <QHash>

#include <functional>
#include <memory>

namespace perchly {

/// PipeWire's processes and routes; needs a session manager that moves streams on request. Connects
/// a moment after start(), when the shelf is visible, and again whenever the server comes back.
class PipeWireAudioSystem : public AudioSystem {
    Q_OBJECT
public:
    /// Finds a running application by its PID and the name of its desktop entry or program, as far
    /// as these are known. May block. Called on threads of a pool, several at once.
    using ApplicationFinder = std::function<std::optional<RunningApplication>(
        std::optional<std::int32_t> pid, const QStringList &hints)>;

    /// `keeper` is the absolute path of the companion that sends streams back if Perchly is killed;
    /// may be empty.
    explicit PipeWireAudioSystem(ApplicationFinder find = {}, const QString &keeper = {},
                                 QObject *parent = nullptr);
    /// Waits at most a quarter of a second for the server to end recent routes. Also waits for the
    /// companion (see ~RouteKeeper) and for the finder.
    ~PipeWireAudioSystem() override;

    void start() override;
    [[nodiscard]] bool canRouteProcesses() const override { return m_hasBeenComplete; }
    [[nodiscard]] AudioObject defaultOutput() const override { return m_graph.defaultOutput(); }
    [[nodiscard]] std::optional<QList<AudioProcess>> processes() const override;
    [[nodiscard]] std::optional<RunningApplication> application(AudioObject process) const override;
    [[nodiscard]] std::unique_ptr<AudioRoute>
    route(AudioObject process, std::shared_ptr<AudioRingBuffer> ring, QString &error) override;

private:
    /// The arguments for the finder.
    struct Question {
        std::optional<std::int32_t> pid;
        QStringList hints;

        friend bool operator==(const Question &, const Question &) = default;
    };
    struct Lookup {
        Question question;
        std::optional<RunningApplication> found; ///< kept until a newer lookup has finished
    };

    void note();
    void findApplications();
    void find(AudioObject process, const Question &question);

    ApplicationFinder m_find;
    PipeWireConnection m_connection;
    AudioGraph m_graph;
    RouteKeeper m_keeper;
    RetiredStreams m_retired;
    QHash<AudioObject, Lookup> m_lookups; ///< of every process that has played
    bool m_hasBeenComplete = false;
    Workers m_workers{8}; ///< so that a slow disk delays only one lookup
};

} // namespace perchly
