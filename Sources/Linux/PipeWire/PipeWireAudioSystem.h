#pragma once

#include "AudioGraph.h"
#include "AudioSystem.h"
#include "PipeWireConnection.h"
#include "RetiredStreams.h"
#include "RouteKeeper.h"

#include <QHash>
#include <QThreadPool>

#include <functional>
#include <memory>

namespace perchly {

/// Processes and routes of PipeWire, with a session manager that moves streams on request. It
/// connects a moment after start(), when the program has shown itself, and again whenever the
/// server comes back.
class PipeWireAudioSystem : public AudioSystem {
    Q_OBJECT
public:
    /// Finds the running application with the process identifier that the system knows, and with
    /// the name of its desktop entry or program, where these are known. May block. Called on
    /// threads of a pool, also on several at once.
    using ApplicationFinder = std::function<std::optional<RunningApplication>(
        std::optional<std::int32_t> pid, const QStringList &hints)>;

    /// The keeper is the absolute path of the companion that lets applications play on as the
    /// person wants if the program is killed; empty when there is none.
    explicit PipeWireAudioSystem(ApplicationFinder find = {}, const QString &keeper = {},
                                 QObject *parent = nullptr);
    /// Waits until the server has heard of routes that ended a moment ago, if there are any, for at
    /// most a quarter of a second; for the companion as RouteKeeper does; and for the finder.
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
        std::optional<RunningApplication> found; ///< stays while a new question is answered
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
    QThreadPool m_pool; ///< destroyed first: waits for the threads, however long a lookup takes
};

} // namespace perchly
