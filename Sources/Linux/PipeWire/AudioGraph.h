#pragma once

#include "AudioSystem.h"
#include "GraphObjects.h"
#include "GraphWiring.h"
#include "SessionMetadata.h"

#include <QTimer>

#include <map>
#include <memory>
#include <utility>

namespace perchly {

class PipeWireConnection;

/// The server's objects: which processes play, and to which output. Clients and streams with the
/// same PID are one process until it ends, since programs close and reopen connections. Process
/// numbers are never reused; an output with the same name keeps its number. Main thread only.
class AudioGraph : public QObject {
    Q_OBJECT
public:
    explicit AudioGraph(PipeWireConnection &connection, QObject *parent = nullptr);
    ~AudioGraph() override;

    /// Whether all existing objects have been announced, and streams can be moved.
    [[nodiscard]] bool isComplete() const { return m_isComplete && m_metadata.isBound(); }

    /// 0 if there is no output. Kept while the server is away.
    [[nodiscard]] AudioObject defaultOutput() const { return m_defaultOutput; }

    [[nodiscard]] QList<AudioProcess> processes() const;
    [[nodiscard]] bool hasProcess(AudioObject process) const;
    /// Null if there is no client.
    [[nodiscard]] const GraphClient *clientOf(AudioObject process) const;
    /// The PID outside any sandbox; nullopt if unknown.
    [[nodiscard]] std::optional<std::int32_t> systemPidOf(AudioObject process) const;
    [[nodiscard]] QList<const GraphStream *> streamsOf(AudioObject process) const;
    /// Null when there is no such stream.
    [[nodiscard]] const GraphStream *stream(std::uint32_t node) const;
    /// 0 when there is no such stream.
    [[nodiscard]] AudioObject processOf(std::uint32_t node) const;
    /// A number that is never reused; empty if the node is not an output.
    [[nodiscard]] QString serialOfOutput(std::uint32_t node) const;
    /// The node; nullopt if no output has that number.
    [[nodiscard]] std::optional<std::uint32_t> outputOfSerial(const QString &serial) const;

    /// A stream was linked to this output as if it were the default. If the table says otherwise,
    /// reads the table again: the server drops its events while another program binds it.
    void recheckDefault(std::uint32_t output);

    [[nodiscard]] SessionMetadata &metadata() { return m_metadata; }
    [[nodiscard]] const GraphWiring &wiring() const { return m_wiring; }

Q_SIGNALS:
    /// isComplete(), processes() or defaultOutput() may have changed. Emitted after a moment, once
    /// for many changes.
    void changed();

    // Emitted from within a callback of the connection:
    // A stream was added (perhaps without a process), was assigned to a process, plays or pauses.
    void streamChanged(std::uint32_t node);
    void streamRemoved(std::uint32_t node);
    void linked(std::uint32_t from, std::uint32_t to);
    /// Streams can no longer be moved or sent back.
    void moverLost();

private:
    struct Callbacks;
    /// A PID and its sandbox, or -1 and another identifier.
    using ProcessKey = std::pair<std::int64_t, QString>;

    struct Known {
        AudioObject number = 0;
        std::optional<quint64> startTime; ///< nullopt if unknown
        QString bundleId;
    };

    struct Output {
        QString name;
        QString serial;
    };

    void begin();
    void clear();
    void add(std::uint32_t id, const char *type, const spa_dict &properties);
    void addNode(std::uint32_t id, const spa_dict &properties);
    void remove(std::uint32_t id);
    void read(GraphClient &client, const spa_dict &properties);
    void forgetProcess(AudioObject process);
    void answered(int number);
    void findDefault();
    [[nodiscard]] static bool isOfSystem(const ProcessKey &key);
    [[nodiscard]] Known &know(const ProcessKey &key);
    [[nodiscard]] bool isConnected(AudioObject process) const;
    [[nodiscard]] AudioObject processOf(const GraphStream &stream) const;

    PipeWireConnection &m_connection;
    ProxyPointer m_registry;
    spa_hook m_registryListener{};
    SessionMetadata m_metadata;
    GraphWiring m_wiring;
    std::map<std::uint32_t, std::unique_ptr<GraphClient>> m_clients;
    std::map<std::uint32_t, std::unique_ptr<GraphStream>> m_streams;
    std::map<std::uint32_t, Output> m_outputs;
    std::map<ProcessKey, Known> m_known;
    QHash<QString, AudioObject> m_outputNumbers;
    AudioObject m_lastNumber = 0;
    AudioObject m_defaultOutput = 0;
    int m_question = 0;
    int m_answers = 0;
    bool m_isComplete = false;
    QTimer m_announcement;
};

} // namespace perchly
