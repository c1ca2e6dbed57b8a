#include "StereoStream.h"

#include "PipeWireConnection.h"

#include <spa/param/audio/format-utils.h>

#include <array>
#include <cerrno>

namespace perchly {

struct StereoStream::Callbacks {
    static void stateChanged(void *data, pw_stream_state before, pw_stream_state state,
                             const char *) {
        auto &self = *static_cast<StereoStream *>(data);
        self.setStreaming(state == PW_STREAM_STATE_STREAMING);
        if (state == PW_STREAM_STATE_ERROR ||
            (state == PW_STREAM_STATE_UNCONNECTED && before != PW_STREAM_STATE_UNCONNECTED)) {
            self.m_isIntact = false;
        }
    }

    static void process(void *data) {
        const auto &self = *static_cast<StereoStream *>(data);
        self.m_process.call(self.m_process.data, self.m_handle);
    }

    static constexpr pw_stream_events events{
        .version = PW_VERSION_STREAM_EVENTS, .state_changed = stateChanged, .process = process};
};

StereoStream::StereoStream(PipeWireConnection &connection, pw_properties *properties,
                           Process process)
    : m_process(process) {
    if (connection.core() == nullptr) {
        pw_properties_free(properties);
        return;
    }
    m_stream.reset(pw_stream_new(connection.core(), "Perchly", properties));
    m_handle = m_stream.get();
    if (m_stream) {
        pw_stream_add_listener(m_stream.get(), &m_listener, &Callbacks::events, this);
    }
    connect(&connection, &PipeWireConnection::lost, this, &StereoStream::close);
}

StereoStream::~StereoStream() {
    close();
}

int StereoStream::open(pw_direction direction, int flags) {
    if (!m_stream) {
        return -ENOTCONN;
    }
    spa_audio_info_raw info{};
    info.format = SPA_AUDIO_FORMAT_F32P;
    info.channels = 2;
    info.position[0] = SPA_AUDIO_CHANNEL_FL;
    info.position[1] = SPA_AUDIO_CHANNEL_FR;
    std::array<std::uint8_t, 1024> space{};
    spa_pod_builder builder{};
    spa_pod_builder_init(&builder, space.data(), std::uint32_t(space.size()));
    const spa_pod *format = spa_format_audio_raw_build(&builder, SPA_PARAM_EnumFormat, &info);
    const auto all =
        pw_stream_flags(flags | PW_STREAM_FLAG_MAP_BUFFERS | PW_STREAM_FLAG_RT_PROCESS);
    return pw_stream_connect(m_stream.get(), direction, PW_ID_ANY, all, &format, 1);
}

void StereoStream::setStreaming(bool isStreaming) {
    if (isStreaming != m_isStreaming) {
        m_isStreaming = isStreaming;
        if (m_streamingChanged) {
            m_streamingChanged(isStreaming);
        }
    }
}

void StereoStream::close() {
    m_isIntact = false;
    setStreaming(false);
    m_stream.reset();
}

std::uint32_t StereoStream::node() const {
    return m_stream ? pw_stream_get_node_id(m_stream.get()) : SPA_ID_INVALID;
}

} // namespace perchly
