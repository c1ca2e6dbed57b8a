// Plays a constant signal through several streams. On stdin, "+" opens one, "-" closes one, "p"
// pauses and "r" resumes all. The session manager may not move the streams of "TonePlayer fixed".
#include <pipewire/pipewire.h>
#include <spa/param/audio/format-utils.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <list>
#include <string_view>
#include <unistd.h>

namespace {

struct Program {
    pw_main_loop *loop = pw_main_loop_new(nullptr);
    bool isFixed = false;
    std::list<pw_stream *> streams;
};

void play(void *data) {
    pw_stream *stream = *static_cast<pw_stream **>(data);
    pw_buffer *buffer = pw_stream_dequeue_buffer(stream);
    if (buffer == nullptr) {
        return;
    }
    spa_data &out = buffer->buffer->datas[0];
    constexpr std::uint32_t size = 2 * sizeof(float);
    const auto frames =
        std::uint32_t(std::min<std::uint64_t>(buffer->requested, out.maxsize / size));
    std::fill_n(static_cast<float *>(out.data), frames * 2, 0.25F);
    out.chunk->offset = 0;
    out.chunk->stride = size;
    out.chunk->size = frames * size;
    pw_stream_queue_buffer(stream, buffer);
}

constexpr pw_stream_events events = [] {
    pw_stream_events made{};
    made.version = PW_VERSION_STREAM_EVENTS;
    made.process = play;
    return made;
}();

void open(Program &program) {
    pw_stream *&stream = program.streams.emplace_back();
    stream = pw_stream_new_simple(
        pw_main_loop_get_loop(program.loop), "Tone",
        pw_properties_new(PW_KEY_MEDIA_TYPE, "Audio", PW_KEY_MEDIA_CATEGORY, "Playback",
                          PW_KEY_APP_NAME, "Tone", PW_KEY_NODE_NAME, "Tone",
                          PW_KEY_NODE_DONT_RECONNECT, program.isFixed ? "true" : "false", nullptr),
        &events, &stream);
    spa_audio_info_raw info{};
    info.format = SPA_AUDIO_FORMAT_F32;
    info.rate = 48000;
    info.channels = 2;
    info.position[0] = SPA_AUDIO_CHANNEL_FL;
    info.position[1] = SPA_AUDIO_CHANNEL_FR;
    std::array<std::uint8_t, 1024> space{};
    spa_pod_builder builder{};
    spa_pod_builder_init(&builder, space.data(), std::uint32_t(space.size()));
    const spa_pod *format = spa_format_audio_raw_build(&builder, SPA_PARAM_EnumFormat, &info);
    pw_stream_connect(stream, PW_DIRECTION_OUTPUT, PW_ID_ANY,
                      pw_stream_flags(PW_STREAM_FLAG_AUTOCONNECT | PW_STREAM_FLAG_MAP_BUFFERS |
                                      PW_STREAM_FLAG_RT_PROCESS),
                      &format, 1);
}

void obey(void *data, int input, std::uint32_t) {
    auto &program = *static_cast<Program *>(data);
    char command = 0;
    if (read(input, &command, 1) != 1) {
        pw_main_loop_quit(program.loop);
    } else if (command == '+') {
        open(program);
    } else if (command == '-') {
        pw_stream_destroy(program.streams.back());
        program.streams.pop_back();
    } else {
        for (pw_stream *stream : program.streams) {
            pw_stream_set_active(stream, command == 'r');
        }
    }
}

} // namespace

int main(int argc, char **argv) {
    pw_init(nullptr, nullptr);
    Program program;
    program.isFixed = argc > 1 && std::string_view(argv[1]) == "fixed";
    pw_loop_add_io(pw_main_loop_get_loop(program.loop), STDIN_FILENO, SPA_IO_IN, false, obey,
                   &program);
    pw_main_loop_run(program.loop);
}
