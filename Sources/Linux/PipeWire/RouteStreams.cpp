#include "RouteStreams.h"

#include "PipeWireConnection.h"

#include <utility>

namespace perchly {

namespace {

void capture(void *cycle, pw_stream *stream) {
    static_cast<RouteCycle *>(cycle)->capture(stream);
}

void play(void *cycle, pw_stream *stream) {
    static_cast<RouteCycle *>(cycle)->play(stream);
}

void set(pw_properties *properties, const char *key, const QString &value) {
    pw_properties_set(properties, key, value.toUtf8().constData());
}

} // namespace

RouteStreams::RouteStreams(PipeWireConnection &connection, const QString &uid,
                           const QString &description, std::shared_ptr<AudioRingBuffer> ring,
                           std::function<void()> running)
    : m_connection(connection)
    , m_uid(uid)
    , m_name(namePrefix + uid)
    , m_description(description)
    , m_cycle(std::move(ring))
    , m_running(connection.loop(), std::move(running)) {
    m_cycle.setRunning(&m_running);
}

RouteStreams::~RouteStreams() = default;

pw_properties *RouteStreams::properties(const QString &name) const {
    pw_properties *made = pw_properties_new(PW_KEY_MEDIA_TYPE, "Audio", nullptr);
    set(made, PW_KEY_NODE_NAME, name);
    set(made, PW_KEY_NODE_DESCRIPTION, m_description);
    return made;
}

void RouteStreams::setGroups(pw_properties *properties) const {
    // Both ends share one driver, and nothing links the playback to the sink.
    set(properties, PW_KEY_NODE_GROUP, m_uid);
    set(properties, PW_KEY_NODE_LINK_GROUP, m_uid);
    // A new route must not restore the volume or target of an earlier one.
    set(properties, "state.restore-props", QStringLiteral("false"));
    set(properties, "state.restore-target", QStringLiteral("false"));
}

std::unique_ptr<StereoStream> RouteStreams::make(pw_properties *properties,
                                                 StereoStream::Process process) {
    return std::make_unique<StereoStream>(m_connection, properties, process);
}

int RouteStreams::openCapture() {
    pw_properties *made = properties(m_name);
    setGroups(made);
    // Must be a plain sink: PulseAudio streams sent to any other kind never start.
    set(made, PW_KEY_MEDIA_CLASS, QStringLiteral("Audio/Sink"));
    set(made, PW_KEY_NODE_AUTOCONNECT, QStringLiteral("false"));
    set(made, PW_KEY_NODE_VIRTUAL, QStringLiteral("true"));
    set(made, PW_KEY_PRIORITY_SESSION, QStringLiteral("0"));
    // A stream sent to an idle sink is interrupted for two cycles.
    set(made, PW_KEY_NODE_ALWAYS_PROCESS, QStringLiteral("true"));
    m_capture = make(made, {capture, &m_cycle});
    return m_capture->open(PW_DIRECTION_INPUT, 0);
}

int RouteStreams::openPlayback() {
    pw_properties *made = properties(m_name + QStringLiteral(".playback"));
    setGroups(made);
    // The output may idle while nothing is captured.
    set(made, PW_KEY_NODE_PASSIVE, QStringLiteral("true"));
    m_playback = make(made, {play, &m_cycle});
    m_cycle.setOutput(m_playback->handle());
    m_playback->onStreamingChanged([this](bool isStreaming) {
        m_cycle.setOutputRuns(isStreaming);
        if (!isStreaming) {
            m_connection.passRealTimeThread();
        }
    });
    return m_playback->open(PW_DIRECTION_OUTPUT,
                            PW_STREAM_FLAG_AUTOCONNECT | PW_STREAM_FLAG_TRIGGER);
}

bool RouteStreams::isMade() const {
    return m_capture->node() != SPA_ID_INVALID && m_playback->node() != SPA_ID_INVALID;
}

void RouteStreams::leaveGraph() {
    for (StereoStream *stream : {m_capture.get(), m_playback.get()}) {
        if (stream != nullptr && stream->handle() != nullptr) {
            pw_stream_set_active(stream->handle(), false);
        }
    }
}

void RouteStreams::letSinkIdle() {
    if (m_capture->handle() != nullptr) {
        const spa_dict_item item{PW_KEY_NODE_ALWAYS_PROCESS, "false"};
        const spa_dict changes{.flags = 0, .n_items = 1, .items = &item};
        pw_stream_update_properties(m_capture->handle(), &changes);
    }
}

bool RouteStreams::isIntact() const {
    return m_capture && m_capture->isIntact() && (!m_playback || m_playback->isIntact());
}

} // namespace perchly
