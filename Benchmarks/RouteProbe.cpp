// Plays numbered frames to the default output and records what arrives there, in the server's own
// cycles. For each line on stdin it prints
// DELAY BREAKS FRAMES
// since the last line: the most frequent delay in frames, how often the numbers did not continue by
// one, and how many frames arrived.
#include <pipewire/pipewire.h>
#include <spa/param/audio/format-utils.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <map>
#include <unistd.h>

namespace {

/// Frame numbers repeat after 87 seconds.
constexpr std::uint32_t numbers = 1U << 22; // exact as floats below 1
constexpr float step = 1.0F / float(numbers);

struct Probe {
    pw_main_loop *loop = pw_main_loop_new(nullptr);
    pw_stream *player = nullptr;
    pw_stream *listener = nullptr;
    std::uint32_t next = 1;
    std::int64_t madeAt = 0; ///< the server's time of frame 0
    std::uint32_t expected = 0;
    std::uint64_t breaks = 0;
    bool wasBroken = false;
    std::uint64_t frames = 0;
    std::map<std::int64_t, std::uint64_t> delays;
};

/// The server's time in this cycle, in frames.
std::int64_t now(pw_stream *stream) {
    pw_time time{};
    pw_stream_get_time_n(stream, &time, sizeof(time));
    return std::int64_t(time.ticks);
}

void play(void *data) {
    auto &probe = *static_cast<Probe *>(data);
    pw_buffer *buffer = pw_stream_dequeue_buffer(probe.player);
    if (buffer == nullptr) {
        return;
    }
    probe.madeAt = now(probe.player) - probe.next;
    spa_data &out = buffer->buffer->datas[0];
    const auto frames =
        std::uint32_t(std::min<std::uint64_t>(buffer->requested, out.maxsize / sizeof(float)));
    auto *samples = static_cast<float *>(out.data);
    for (std::uint32_t index = 0; index < frames; ++index) {
        samples[index] = float(probe.next) * step;
        probe.next = (probe.next + 1) % numbers;
    }
    out.chunk->offset = 0;
    out.chunk->stride = sizeof(float);
    out.chunk->size = frames * std::uint32_t(sizeof(float));
    pw_stream_queue_buffer(probe.player, buffer);
}

void listen(void *data) {
    auto &probe = *static_cast<Probe *>(data);
    pw_buffer *buffer = pw_stream_dequeue_buffer(probe.listener);
    if (buffer == nullptr) {
        return;
    }
    const spa_data &in = buffer->buffer->datas[0];
    const auto *samples = static_cast<const float *>(in.data);
    const auto frames = std::uint32_t(in.chunk->size / sizeof(float));
    for (std::uint32_t index = 0; index < frames; ++index) {
        const auto number = std::uint32_t(std::lround(samples[index] / step));
        const bool isBroken = number != probe.expected;
        probe.breaks += isBroken && !probe.wasBroken ? 1 : 0;
        probe.wasBroken = isBroken;
        probe.expected = (number + 1) % numbers;
    }
    if (frames > 0) {
        ++probe.delays[now(probe.listener) - probe.madeAt - std::lround(samples[0] / step)];
        probe.frames += frames;
    }
    pw_stream_queue_buffer(probe.listener, buffer);
}

constexpr pw_stream_events withProcess(void (*process)(void *data)) {
    pw_stream_events events{};
    events.version = PW_VERSION_STREAM_EVENTS;
    events.process = process;
    return events;
}

pw_stream *open(Probe &probe, pw_direction direction, const pw_stream_events &events,
                pw_properties *properties) {
    pw_stream *stream = pw_stream_new_simple(pw_main_loop_get_loop(probe.loop), "probe", properties,
                                             &events, &probe);
    std::array<std::uint8_t, 1024> space{};
    spa_pod_builder builder{};
    spa_pod_builder_init(&builder, space.data(), std::uint32_t(space.size()));
    spa_audio_info_raw info{};
    info.format = SPA_AUDIO_FORMAT_F32P;
    info.rate = 48000;
    info.channels = 1;
    info.position[0] = SPA_AUDIO_CHANNEL_FL;
    const spa_pod *format = spa_format_audio_raw_build(&builder, SPA_PARAM_EnumFormat, &info);
    pw_stream_connect(stream, direction, PW_ID_ANY,
                      pw_stream_flags(PW_STREAM_FLAG_AUTOCONNECT | PW_STREAM_FLAG_MAP_BUFFERS |
                                      PW_STREAM_FLAG_RT_PROCESS),
                      &format, 1);
    return stream;
}

void onInput(void *data, int descriptor, std::uint32_t) {
    auto &probe = *static_cast<Probe *>(data);
    std::array<char, 64> line{};
    if (read(descriptor, line.data(), line.size()) <= 0) {
        pw_main_loop_quit(probe.loop);
        return;
    }
    const auto most =
        std::max_element(probe.delays.begin(), probe.delays.end(),
                         [](const auto &a, const auto &b) { return a.second < b.second; });
    std::printf("%lld %llu %llu\n",
                static_cast<long long>(most == probe.delays.end() ? 0 : most->first),
                static_cast<unsigned long long>(probe.breaks),
                static_cast<unsigned long long>(probe.frames));
    std::fflush(stdout);
    probe.delays.clear();
    probe.breaks = 0;
    probe.frames = 0;
}

} // namespace

int main() {
    pw_init(nullptr, nullptr);
    static constexpr pw_stream_events playing = withProcess(play);
    static constexpr pw_stream_events listening = withProcess(listen);
    Probe probe;
    probe.player = open(probe, PW_DIRECTION_OUTPUT, playing,
                        pw_properties_new(PW_KEY_MEDIA_TYPE, "Audio", PW_KEY_NODE_NAME, "probe",
                                          PW_KEY_MEDIA_CATEGORY, "Playback", nullptr));
    probe.listener = open(probe, PW_DIRECTION_INPUT, listening,
                          pw_properties_new(PW_KEY_MEDIA_TYPE, "Audio", PW_KEY_STREAM_CAPTURE_SINK,
                                            "true", PW_KEY_MEDIA_CATEGORY, "Capture",
                                            PW_KEY_TARGET_OBJECT, "first", nullptr));
    pw_loop_add_io(pw_main_loop_get_loop(probe.loop), STDIN_FILENO, SPA_IO_IN, false, onInput,
                   &probe);
    pw_main_loop_run(probe.loop);
}
