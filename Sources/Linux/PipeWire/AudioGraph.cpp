#include "AudioGraph.h"

#include "DictValue.h"
#include "PipeWireConnection.h"
#include "ProcessTime.h"

#include <spa/param/format-utils.h>

#include <algorithm>
#include <cstring>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto announcementDelay = 20ms;
constexpr auto recheckDelay = 1s;

const char *const outputStream = "Stream/Output/Audio";

pw_registry *asRegistry(const ProxyPointer &proxy) {
    return reinterpret_cast<pw_registry *>(proxy.get());
}

template <class Interface>
Interface *bindTo(const ProxyPointer &registry, std::uint32_t id, const char *type,
                  ProxyPointer &proxy) {
    void *bound = pw_registry_bind(asRegistry(registry), id, type, 3, 0);
    proxy.reset(static_cast<pw_proxy *>(bound));
    return static_cast<Interface *>(bound);
}

bool isTrue(const char *value) {
    return value != nullptr && spa_atob(value);
}

} // namespace

struct AudioGraph::Callbacks {
    static void global(void *data, std::uint32_t id, std::uint32_t, const char *type, std::uint32_t,
                       const spa_dict *properties) {
        static constexpr spa_dict none{};
        static_cast<AudioGraph *>(data)->add(id, type, properties != nullptr ? *properties : none);
    }

    static void globalRemove(void *data, std::uint32_t id) {
        static_cast<AudioGraph *>(data)->remove(id);
    }

    static void clientInfo(void *data, const pw_client_info *info) {
        auto &client = *static_cast<GraphClient *>(data);
        // Only a change of the properties includes them.
        if ((info->change_mask & PW_CLIENT_CHANGE_MASK_PROPS) != 0 && info->props != nullptr) {
            client.graph->read(client, *info->props);
        }
    }

    static void nodeInfo(void *data, const pw_node_info *info) {
        auto &stream = *static_cast<GraphStream *>(data);
        const bool isRunning = info->state == PW_NODE_STATE_RUNNING;
        if ((info->change_mask & PW_NODE_CHANGE_MASK_PROPS) != 0 && info->props != nullptr) {
            stream.isFixed = isTrue(spa_dict_lookup(info->props, PW_KEY_NODE_DONT_RECONNECT));
        }
        if (std::exchange(stream.isRunning, isRunning) != isRunning) {
            stream.graph->m_announcement.start();
            Q_EMIT stream.graph->streamChanged(stream.node);
        }
    }

    static void nodeParameter(void *data, int, std::uint32_t id, std::uint32_t, std::uint32_t,
                              const spa_pod *parameter) {
        std::uint32_t type = SPA_MEDIA_TYPE_unknown;
        std::uint32_t subtype = SPA_MEDIA_SUBTYPE_unknown;
        if (id == SPA_PARAM_Format && parameter != nullptr &&
            spa_format_parse(parameter, &type, &subtype) >= 0) {
            static_cast<GraphStream *>(data)->isEncoded =
                subtype != SPA_MEDIA_SUBTYPE_raw && subtype != SPA_MEDIA_SUBTYPE_dsp;
        }
    }

    static constexpr pw_registry_events registry{
        .version = PW_VERSION_REGISTRY_EVENTS, .global = global, .global_remove = globalRemove};
    static constexpr pw_client_events client{
        .version = PW_VERSION_CLIENT_EVENTS, .info = clientInfo, .permissions = nullptr};
    static constexpr pw_node_events node{
        .version = PW_VERSION_NODE_EVENTS, .info = nodeInfo, .param = nodeParameter};
};

AudioGraph::AudioGraph(PipeWireConnection &connection, QObject *parent)
    : QObject(parent)
    , m_connection(connection) {
    m_announcement.setSingleShot(true);
    m_announcement.setInterval(announcementDelay);
    connect(&m_announcement, &QTimer::timeout, this, [this] {
        // Forget processes that had not yet ended when their last stream went.
        std::erase_if(m_known, [this](const auto &entry) {
            const Known known = entry.second;
            return !hasProcess(known.number);
        });
        findDefault();
        Q_EMIT changed();
        m_metadata.restoreDefaultOutput();
    });
    connect(&connection, &PipeWireConnection::connected, this, &AudioGraph::begin);
    connect(&connection, &PipeWireConnection::lost, this, &AudioGraph::clear);
    connect(&connection, &PipeWireConnection::answered, this, &AudioGraph::answered);
    // Delayed, since a session manager removes its table before it exits.
    connect(&m_metadata, &SessionMetadata::defaultOutputChanged, &m_announcement,
            qOverload<>(&QTimer::start));
}

AudioGraph::~AudioGraph() {
    m_metadata.disconnect(this);
}

void AudioGraph::begin() {
    m_registry.reset(reinterpret_cast<pw_proxy *>(
        pw_core_get_registry(m_connection.core(), PW_VERSION_REGISTRY, 0)));
    if (!m_registry) {
        return;
    }
    m_registryListener = {};
    pw_registry_add_listener(asRegistry(m_registry), &m_registryListener, &Callbacks::registry,
                             this);
    m_answers = 0;
    m_question = m_connection.ask();
}

void AudioGraph::clear() {
    m_isComplete = false;
    m_question = 0;
    m_wiring.clear();
    m_metadata.unbind();
    m_clients.clear();
    m_streams.clear();
    m_outputs.clear();
    m_known.clear();
    m_registry.reset();
    Q_EMIT moverLost();
    m_announcement.start();
}

void AudioGraph::answered(int number) {
    // The first answer comes after all objects, the second after their properties.
    if (m_isComplete || number != m_question) {
        return;
    }
    if (++m_answers < 2) {
        m_question = m_connection.ask();
        return;
    }
    m_isComplete = true;
    findDefault();
    m_announcement.start();
}

void AudioGraph::add(std::uint32_t id, const char *type, const spa_dict &properties) {
    if (m_wiring.add(id, type, properties)) {
        const GraphLink link = m_wiring.link(id);
        Q_EMIT linked(link.from, link.to);
        return;
    }
    if (std::strcmp(type, PW_TYPE_INTERFACE_Client) == 0) {
        auto client = std::make_unique<GraphClient>();
        client->graph = this;
        client->id = id;
        if (auto *bound = bindTo<pw_client>(m_registry, id, type, client->proxy)) {
            pw_client_add_listener(bound, &client->listener, &Callbacks::client, client.get());
        }
        m_clients[id] = std::move(client);
    } else if (std::strcmp(type, PW_TYPE_INTERFACE_Node) == 0) {
        addNode(id, properties);
    } else if (std::strcmp(type, PW_TYPE_INTERFACE_Metadata) == 0 && !m_metadata.isBound() &&
               SessionMetadata::isDescribedBy(properties)) {
        m_metadata.bind(asRegistry(m_registry), id);
        m_announcement.start();
        // While a client binds the table, PipeWire drops its events for all others.
        QTimer::singleShot(recheckDelay, &m_metadata, [this, id] {
            if (m_metadata.isBound() && m_metadata.id() == id &&
                m_metadata.defaultOutput().isEmpty()) {
                m_metadata.bind(asRegistry(m_registry), id);
            }
        });
    }
}

void AudioGraph::addNode(std::uint32_t id, const spa_dict &properties) {
    const QString mediaClass = textOf(properties, PW_KEY_MEDIA_CLASS);
    if (mediaClass == QLatin1String(outputStream)) {
        auto stream = std::make_unique<GraphStream>();
        stream->graph = this;
        stream->node = id;
        stream->client = numberOf(properties, PW_KEY_CLIENT_ID);
        if (!stream->client) {
            stream->ownProcess = know({-1, QStringLiteral("node %1").arg(id)}).number;
        }
        if (auto *bound = bindTo<pw_node>(m_registry, id, PW_TYPE_INTERFACE_Node, stream->proxy)) {
            pw_node_add_listener(bound, &stream->listener, &Callbacks::node, stream.get());
            std::uint32_t format = SPA_PARAM_Format;
            pw_node_subscribe_params(bound, &format, 1);
        }
        m_streams[id] = std::move(stream);
        Q_EMIT streamChanged(id);
    } else if (mediaClass == QLatin1String("Audio/Sink") ||
               mediaClass == QLatin1String("Audio/Duplex")) {
        m_outputs[id] = {textOf(properties, PW_KEY_NODE_NAME),
                         textOf(properties, PW_KEY_OBJECT_SERIAL)};
        m_announcement.start();
    }
}

void AudioGraph::remove(std::uint32_t id) {
    if (m_wiring.remove(id)) {
        return;
    }
    if (const auto client = m_clients.find(id); client != m_clients.end()) {
        const AudioObject process = client->second->process;
        m_clients.erase(client);
        forgetProcess(process);
    } else if (const auto stream = m_streams.find(id); stream != m_streams.end()) {
        const AudioObject process = processOf(*stream->second);
        m_streams.erase(stream);
        m_metadata.forget(id);
        forgetProcess(process);
        Q_EMIT streamRemoved(id);
    } else if (m_outputs.erase(id) > 0) {
        m_announcement.start();
    } else if (m_metadata.isBound() && m_metadata.id() == id) {
        m_metadata.unbind();
        Q_EMIT moverLost();
        m_announcement.start();
    }
}

void AudioGraph::read(GraphClient &client, const spa_dict &properties) {
    const bool isPulse = textOf(properties, PW_KEY_CLIENT_API) == QLatin1String("pipewire-pulse");
    bool isNumber = false;
    const qint32 pid =
        textOf(properties, isPulse ? PW_KEY_APP_PROCESS_ID : PW_KEY_SEC_PID).toInt(&isNumber);
    client.pid = isNumber && pid > 0 ? std::optional(pid) : std::nullopt;
    client.name = textOf(properties, PW_KEY_APP_NAME);
    client.applicationId = textOf(properties, PW_KEY_APP_ID);
    client.binary = textOf(properties, PW_KEY_APP_PROCESS_BINARY);
    // Each sandbox has its own PIDs.
    const QString sandbox = textOf(properties, "pipewire.access.portal.app_id");
    if (client.applicationId.isEmpty()) {
        client.applicationId = sandbox;
    }
    const AudioObject before = client.process;
    Known &known = know(client.pid ? ProcessKey{*client.pid, sandbox}
                                   : ProcessKey{-1, QStringLiteral("client %1").arg(client.id)});
    client.process = known.number;
    const QString &bundle = client.applicationId.isEmpty() ? client.binary : client.applicationId;
    if (known.bundleId.isEmpty()) {
        known.bundleId = bundle;
    }
    if (before == client.process) {
        return;
    }
    forgetProcess(before);
    m_announcement.start();
    for (const GraphStream *stream : streamsOf(client.process)) {
        if (stream->client == client.id) {
            Q_EMIT streamChanged(stream->node);
        }
    }
}

bool AudioGraph::isOfSystem(const ProcessKey &key) {
    return key.first > 0 && key.second.isEmpty();
}

AudioGraph::Known &AudioGraph::know(const ProcessKey &key) {
    Known &known = m_known[key];
    const auto startTime =
        isOfSystem(key) ? processStartTime(std::int32_t(key.first)) : std::nullopt;
    if (known.number != 0 && startTime && known.startTime && startTime != known.startTime) {
        known = {}; // the pid was reused
    }
    if (known.number == 0) {
        known.number = ++m_lastNumber;
        known.startTime = startTime;
    }
    return known;
}

void AudioGraph::forgetProcess(AudioObject process) {
    if (process != 0 && !hasProcess(process)) {
        std::erase_if(m_known, [&](const auto &entry) { return entry.second.number == process; });
    }
    m_announcement.start();
}

bool AudioGraph::isConnected(AudioObject process) const {
    return std::any_of(m_clients.cbegin(), m_clients.cend(),
                       [&](const auto &entry) { return entry.second->process == process; }) ||
           std::any_of(m_streams.cbegin(), m_streams.cend(),
                       [&](const auto &entry) { return processOf(*entry.second) == process; });
}

bool AudioGraph::hasProcess(AudioObject process) const {
    return std::any_of(m_known.cbegin(), m_known.cend(), [&](const auto &entry) {
        const auto &[key, known] = entry;
        return known.number == process &&
               (isConnected(process) ||
                (known.startTime && processStartTime(std::int32_t(key.first)) == known.startTime));
    });
}

AudioObject AudioGraph::processOf(const GraphStream &stream) const {
    if (!stream.client) {
        return stream.ownProcess;
    }
    const auto client = m_clients.find(*stream.client);
    return client == m_clients.end() ? 0 : client->second->process;
}

const GraphStream *AudioGraph::stream(std::uint32_t node) const {
    const auto stream = m_streams.find(node);
    return stream == m_streams.end() ? nullptr : stream->second.get();
}

AudioObject AudioGraph::processOf(std::uint32_t node) const {
    const auto stream = m_streams.find(node);
    return stream == m_streams.end() ? 0 : processOf(*stream->second);
}

QList<const GraphStream *> AudioGraph::streamsOf(AudioObject process) const {
    QList<const GraphStream *> streams;
    for (const auto &[node, stream] : m_streams) {
        if (processOf(*stream) == process) {
            streams.append(stream.get());
        }
    }
    return streams;
}

const GraphClient *AudioGraph::clientOf(AudioObject process) const {
    const GraphClient *best = nullptr;
    for (const auto &[id, client] : m_clients) {
        if (client->process == process && (best == nullptr || best->name.isEmpty())) {
            best = client.get();
        }
    }
    return best;
}

std::optional<std::int32_t> AudioGraph::systemPidOf(AudioObject process) const {
    const auto found = std::find_if(m_known.cbegin(), m_known.cend(), [&](const auto &entry) {
        return entry.second.number == process;
    });
    return found != m_known.cend() && isOfSystem(found->first)
               ? std::optional(std::int32_t(found->first.first))
               : std::nullopt;
}

QList<AudioProcess> AudioGraph::processes() const {
    std::map<AudioObject, AudioProcess> found;
    for (const auto &[id, client] : m_clients) {
        if (client->process != 0) {
            found[client->process].pid = client->pid;
        }
    }
    for (const auto &[node, stream] : m_streams) {
        if (const AudioObject number = processOf(*stream); number != 0) {
            std::optional<bool> &isRunning = found[number].isRunningOutput;
            isRunning = isRunning.value_or(false) || stream->isRunning;
        }
    }
    for (const auto &[key, known] : m_known) {
        if (!found.contains(known.number) && hasProcess(known.number)) {
            found[known.number] = {.pid = std::int32_t(key.first), .isRunningOutput = false};
        }
        if (const auto process = found.find(known.number); process != found.end()) {
            process->second.isSandboxed = key.first > 0 && !isOfSystem(key);
            if (!known.bundleId.isEmpty()) {
                process->second.bundleId = known.bundleId;
            }
        }
    }
    QList<AudioProcess> list;
    for (auto &[number, process] : found) {
        process.object = number;
        list.append(process);
    }
    return list;
}

std::optional<std::uint32_t> AudioGraph::outputOfSerial(const QString &serial) const {
    const auto output = std::find_if(m_outputs.cbegin(), m_outputs.cend(), [&](const auto &entry) {
        return entry.second.serial == serial;
    });
    return output == m_outputs.cend() ? std::nullopt : std::optional(output->first);
}

QString AudioGraph::serialOfOutput(std::uint32_t node) const {
    const auto output = m_outputs.find(node);
    return output == m_outputs.end() ? QString() : output->second.serial;
}

void AudioGraph::recheckDefault(std::uint32_t output) {
    const auto found = m_outputs.find(output);
    if (found != m_outputs.cend() && found->second.name != m_metadata.defaultOutput() &&
        m_metadata.isBound()) {
        m_metadata.bind(asRegistry(m_registry), m_metadata.id());
    }
}

void AudioGraph::findDefault() {
    if (!isComplete()) {
        return;
    }
    const QString name = m_metadata.defaultOutput();
    const bool isThere = !name.isEmpty() &&
                         std::any_of(m_outputs.cbegin(), m_outputs.cend(),
                                     [&](const auto &entry) { return entry.second.name == name; });
    AudioObject number = 0;
    if (isThere) {
        AudioObject &known = m_outputNumbers[name];
        number = known != 0 ? known : (known = ++m_lastNumber);
    }
    m_defaultOutput = number;
}

} // namespace perchly
