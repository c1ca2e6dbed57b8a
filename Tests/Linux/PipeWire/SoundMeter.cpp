#include "SoundMeter.h"

#include <QElapsedTimer>
#include <QTest>

#include <spa/param/audio/format-utils.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace perchly {

namespace {

constexpr int framesInAMillisecond = 48;

constexpr pw_stream_events withProcess(void (*process)(void *data)) {
    pw_stream_events events{};
    events.version = PW_VERSION_STREAM_EVENTS;
    events.process = process;
    return events;
}

} // namespace

SoundMeter::SoundMeter(const QString &output) {
    static constexpr pw_stream_events events = withProcess(listen);
    pw_init(nullptr, nullptr);
    m_loop = pw_thread_loop_new("meter", nullptr);
    pw_properties *properties = pw_properties_new(
        PW_KEY_MEDIA_TYPE, "Audio", PW_KEY_MEDIA_CATEGORY, "Capture", PW_KEY_NODE_NAME, "meter",
        PW_KEY_STREAM_CAPTURE_SINK, "true", "node.dont-reconnect", "true", PW_KEY_TARGET_OBJECT,
        output.toUtf8().constData(), nullptr);
    m_stream =
        pw_stream_new_simple(pw_thread_loop_get_loop(m_loop), "meter", properties, &events, this);
    std::array<std::uint8_t, 1024> space{};
    spa_pod_builder builder{};
    spa_pod_builder_init(&builder, space.data(), std::uint32_t(space.size()));
    spa_audio_info_raw info{};
    info.format = SPA_AUDIO_FORMAT_F32P;
    info.rate = 48000;
    info.channels = 2;
    info.position[0] = SPA_AUDIO_CHANNEL_FL;
    info.position[1] = SPA_AUDIO_CHANNEL_FR;
    const spa_pod *format = spa_format_audio_raw_build(&builder, SPA_PARAM_EnumFormat, &info);
    pw_stream_connect(m_stream, PW_DIRECTION_INPUT, PW_ID_ANY,
                      pw_stream_flags(PW_STREAM_FLAG_AUTOCONNECT | PW_STREAM_FLAG_MAP_BUFFERS |
                                      PW_STREAM_FLAG_RT_PROCESS),
                      &format, 1);
    pw_thread_loop_start(m_loop);
    if (!QTest::qWaitFor([this] { return m_cycles > 0; }, 5000)) {
        qWarning("%s is not to be heard", qPrintable(output));
    }
}

SoundMeter::~SoundMeter() {
    pw_thread_loop_stop(m_loop);
    pw_stream_destroy(m_stream);
    pw_thread_loop_destroy(m_loop);
}

void SoundMeter::listen(void *data) {
    auto &self = *static_cast<SoundMeter *>(data);
    pw_buffer *buffer = pw_stream_dequeue_buffer(self.m_stream);
    if (buffer == nullptr) {
        return;
    }
    const spa_data &left = buffer->buffer->datas[0];
    const auto *samples = static_cast<const float *>(left.data);
    {
        const std::scoped_lock lock(self.m_mutex);
        self.m_heard.insert(self.m_heard.end(), samples,
                            samples + left.chunk->size / sizeof(float));
    }
    ++self.m_cycles;
    pw_stream_queue_buffer(self.m_stream, buffer);
}

float SoundMeter::level(int milliseconds) {
    const auto wanted = std::size_t(milliseconds) * framesInAMillisecond;
    clear();
    static_cast<void>(
        QTest::qWaitFor([&] { return heard().size() >= wanted; }, milliseconds * 2 + 500));
    float loudest = 0;
    for (const float sample : heard()) {
        loudest = std::max(loudest, std::abs(sample));
    }
    return loudest;
}

bool SoundMeter::comesTo(float wanted, int limit) {
    QElapsedTimer time;
    time.start();
    float last = -1;
    while (time.elapsed() < limit) {
        last = level();
        if (std::abs(last - wanted) <= 0.01F * wanted + 1e-5F) {
            return true;
        }
    }
    qWarning("heard %f instead of %f", double(last), double(wanted));
    return false;
}

void SoundMeter::clear() {
    const std::scoped_lock lock(m_mutex);
    m_heard.clear();
}

std::vector<float> SoundMeter::heard() const {
    const std::scoped_lock lock(m_mutex);
    return m_heard;
}

std::size_t SoundMeter::longestSilence() const {
    std::size_t longest = 0;
    std::size_t length = 0;
    for (const float sample : heard()) {
        length = std::abs(sample) < 1e-5F ? length + 1 : 0;
        longest = std::max(longest, length);
    }
    return longest;
}

} // namespace perchly
