#include "RouteStreams.h"

#include "PipeWireConnection.h"

#include <spa/param/audio/format-utils.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr auto openingLimit = 250ms;

bool isDecided(pw_stream *stream) {
    const pw_stream_state state = pw_stream_get_state(stream, nullptr);
    return state != PW_STREAM_STATE_CONNECTING && state != PW_STREAM_STATE_UNCONNECTED;
}

/// Stereo floats, one buffer for each channel, at whatever rate the graph has.
const spa_pod *stereoFormat(spa_pod_builder &builder) {
    spa_audio_info_raw info{};
    info.format = SPA_AUDIO_FORMAT_F32P;
    info.channels = 2;
    info.position[0] = SPA_AUDIO_CHANNEL_FL;
    info.position[1] = SPA_AUDIO_CHANNEL_FR;
    return spa_format_audio_raw_build(&builder, SPA_PARAM_EnumFormat, &info);
}

} // namespace

struct RouteStreams::Callbacks {
    static void stateChanged(void *data, pw_stream_state before, pw_stream_state state,
                             const char *) {
        if (state == PW_STREAM_STATE_ERROR ||
            (state == PW_STREAM_STATE_UNCONNECTED && before != PW_STREAM_STATE_UNCONNECTED)) {
            static_cast<RouteStreams *>(data)->m_isIntact = false;
        }
    }

    static void capture(void *data) { static_cast<RouteStreams *>(data)->m_cycle.capture(); }

    static void play(void *data) { static_cast<RouteStreams *>(data)->m_cycle.play(); }

    static constexpr pw_stream_events withProcess(void (*process)(void *data)) {
        pw_stream_events events{};
        events.version = PW_VERSION_STREAM_EVENTS;
        events.state_changed = stateChanged;
        events.process = process;
        return events;
    }
};

RouteStreams::RouteStreams(PipeWireConnection &connection, const QString &uid,
                           const QString &description)
    : m_connection(connection)
    , m_uid(uid)
    , m_name(QStringLiteral("perchly.") + uid)
    , m_description(description) {
    connect(&connection, &PipeWireConnection::lost, this, &RouteStreams::clear);
}

RouteStreams::~RouteStreams() {
    clear();
}

void RouteStreams::clear() {
    m_isIntact = false;
    m_capture.reset();
    m_playback.reset();
}

pw_properties *RouteStreams::properties(const QString &name, const char *direction) const {
    pw_properties *made = pw_properties_new(PW_KEY_MEDIA_TYPE, "Audio", nullptr);
    pw_properties_set(made, PW_KEY_NODE_NAME, name.toUtf8().constData());
    pw_properties_set(made, PW_KEY_NODE_DESCRIPTION, m_description.toUtf8().constData());
    pw_properties_set(made, PW_KEY_MEDIA_NAME, direction);
    // One driver for both, and no way from one to the other.
    pw_properties_set(made, PW_KEY_NODE_GROUP, m_uid.toUtf8().constData());
    pw_properties_set(made, PW_KEY_NODE_LINK_GROUP, m_uid.toUtf8().constData());
    return made;
}

AudioStatus RouteStreams::openCapture() {
    // A plain sink: streams of the sound server's older protocol wait for ever for any other kind.
    pw_properties *made = properties(m_name, "capture");
    pw_properties_set(made, PW_KEY_MEDIA_CLASS, "Audio/Sink");
    pw_properties_set(made, PW_KEY_NODE_AUTOCONNECT, "false");
    pw_properties_set(made, PW_KEY_NODE_VIRTUAL, "true");
    pw_properties_set(made, PW_KEY_PRIORITY_SESSION, "0");
    static constexpr pw_stream_events events = Callbacks::withProcess(Callbacks::capture);
    m_capture = make(made, m_captureListener, events);
    m_cycle.setSource(m_capture.get());
    return open(m_capture.get(), PW_DIRECTION_INPUT, 0);
}

QString RouteStreams::openPlayback() {
    // Passive, so that the output may rest while nothing is captured.
    pw_properties *made = properties(m_name + QStringLiteral(".playback"), "playback");
    pw_properties_set(made, PW_KEY_MEDIA_CATEGORY, "Playback");
    pw_properties_set(made, PW_KEY_NODE_PASSIVE, "true");
    static constexpr pw_stream_events events = Callbacks::withProcess(Callbacks::play);
    m_playback = make(made, m_playbackListener, events);
    m_cycle.setOutput(m_playback.get());
    const int status = open(m_playback.get(), PW_DIRECTION_OUTPUT,
                            PW_STREAM_FLAG_AUTOCONNECT | PW_STREAM_FLAG_TRIGGER);
    if (status == 0) {
        return {};
    }
    const char *error = nullptr;
    if (m_playback) {
        pw_stream_get_state(m_playback.get(), &error);
    }
    const QString reason = QString::fromUtf8(error != nullptr ? error : std::strerror(-status));
    return QStringLiteral("The audio output cannot be opened: %1.").arg(reason);
}

StreamPointer RouteStreams::make(pw_properties *properties, spa_hook &listener,
                                 const pw_stream_events &events) {
    if (m_connection.core() == nullptr) {
        pw_properties_free(properties);
        return nullptr;
    }
    StreamPointer stream(pw_stream_new(m_connection.core(), "Perchly", properties));
    if (stream) {
        listener = {};
        pw_stream_add_listener(stream.get(), &listener, &events, this);
    }
    return stream;
}

int RouteStreams::open(pw_stream *stream, pw_direction direction, int flags) {
    if (stream == nullptr) {
        return -ENOTCONN;
    }
    std::array<std::uint8_t, 1024> space{};
    spa_pod_builder builder{};
    spa_pod_builder_init(&builder, space.data(), std::uint32_t(space.size()));
    const spa_pod *format = stereoFormat(builder);
    const auto all =
        pw_stream_flags(flags | PW_STREAM_FLAG_MAP_BUFFERS | PW_STREAM_FLAG_RT_PROCESS);
    if (const int status = pw_stream_connect(stream, direction, PW_ID_ANY, all, &format, 1);
        status < 0) {
        return status;
    }
    if (!m_connection.waitFor(openingLimit, [&] { return isDecided(stream); })) {
        return -ETIMEDOUT;
    }
    return m_isIntact ? 0 : -EIO;
}

std::uint32_t RouteStreams::captureNode() const {
    return m_capture ? pw_stream_get_node_id(m_capture.get()) : SPA_ID_INVALID;
}

std::uint32_t RouteStreams::playbackNode() const {
    return m_playback ? pw_stream_get_node_id(m_playback.get()) : SPA_ID_INVALID;
}

} // namespace perchly
