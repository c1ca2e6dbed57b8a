// A program that plays a tone through as many streams as it is told to on its standard input: "+"
// opens one, "o" opens a paused one, "-" closes one, "p" pauses and "r" resumes all of them.
//   TonePlayer [NAME [CHANNELS [int16|float [fixed]]]]
// A fixed one's streams may not be moved.
#include <pipewire/pipewire.h>
#include <spa/param/audio/format-utils.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <numbers>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace {

struct Tone {
    pw_stream *stream = nullptr;
    std::uint32_t channels = 2;
    bool isInteger = false;
    std::uint64_t frame = 0;
};

struct Program {
    pw_main_loop *loop = pw_main_loop_new(nullptr);
    const char *name = "Tone";
    std::uint32_t channels = 2;
    bool isInteger = false;
    bool isFixed = false;
    std::vector<std::unique_ptr<Tone>> tones;
};

void play(void *data) {
    auto &tone = *static_cast<Tone *>(data);
    pw_buffer *buffer = pw_stream_dequeue_buffer(tone.stream);
    if (buffer == nullptr) {
        return;
    }
    spa_data &out = buffer->buffer->datas[0];
    const std::uint32_t size = tone.channels * (tone.isInteger ? 2 : 4);
    const auto frames =
        std::uint32_t(std::min<std::uint64_t>(buffer->requested, out.maxsize / size));
    for (std::uint32_t index = 0; index < frames * tone.channels; ++index) {
        const auto turn = float((tone.frame + index / tone.channels) % 100) / 100;
        const float sample = 0.25F * std::sin(2 * std::numbers::pi_v<float> * turn);
        if (tone.isInteger) {
            static_cast<std::int16_t *>(out.data)[index] = std::int16_t(sample * 32767);
        } else {
            static_cast<float *>(out.data)[index] = sample;
        }
    }
    tone.frame += frames;
    out.chunk->offset = 0;
    out.chunk->stride = std::int32_t(size);
    out.chunk->size = frames * size;
    pw_stream_queue_buffer(tone.stream, buffer);
}

constexpr pw_stream_events events = [] {
    pw_stream_events made{};
    made.version = PW_VERSION_STREAM_EVENTS;
    made.process = play;
    return made;
}();

void open(Program &program, int flags) {
    auto tone = std::make_unique<Tone>();
    tone->channels = program.channels;
    tone->isInteger = program.isInteger;
    tone->stream = pw_stream_new_simple(
        pw_main_loop_get_loop(program.loop), program.name,
        pw_properties_new(PW_KEY_MEDIA_TYPE, "Audio", PW_KEY_MEDIA_CATEGORY, "Playback",
                          PW_KEY_APP_NAME, program.name, PW_KEY_NODE_NAME, program.name,
                          PW_KEY_NODE_DONT_RECONNECT, program.isFixed ? "true" : "false", nullptr),
        &events, tone.get());
    spa_audio_info_raw info{};
    info.format = program.isInteger ? SPA_AUDIO_FORMAT_S16 : SPA_AUDIO_FORMAT_F32;
    info.rate = 48000;
    info.channels = program.channels;
    constexpr std::array<std::uint32_t, 6> surround{SPA_AUDIO_CHANNEL_FL, SPA_AUDIO_CHANNEL_FR,
                                                    SPA_AUDIO_CHANNEL_FC, SPA_AUDIO_CHANNEL_LFE,
                                                    SPA_AUDIO_CHANNEL_RL, SPA_AUDIO_CHANNEL_RR};
    std::copy(surround.begin(), surround.end(), info.position);
    if (info.channels == 1) {
        info.position[0] = SPA_AUDIO_CHANNEL_MONO;
    }
    std::array<std::uint8_t, 1024> space{};
    spa_pod_builder builder{};
    spa_pod_builder_init(&builder, space.data(), std::uint32_t(space.size()));
    const spa_pod *format = spa_format_audio_raw_build(&builder, SPA_PARAM_EnumFormat, &info);
    pw_stream_connect(tone->stream, PW_DIRECTION_OUTPUT, PW_ID_ANY,
                      pw_stream_flags(flags | PW_STREAM_FLAG_AUTOCONNECT |
                                      PW_STREAM_FLAG_MAP_BUFFERS | PW_STREAM_FLAG_RT_PROCESS),
                      &format, 1);
    program.tones.push_back(std::move(tone));
}

void obey(Program &program, char command) {
    if (command == '+') {
        open(program, 0);
    } else if (command == 'o') {
        open(program, PW_STREAM_FLAG_INACTIVE);
    } else if (command == '-' && !program.tones.empty()) {
        pw_stream_destroy(program.tones.back()->stream);
        program.tones.pop_back();
    } else if (command == 'p' || command == 'r') {
        for (const auto &tone : program.tones) {
            pw_stream_set_active(tone->stream, command == 'r');
        }
    }
}

void onInput(void *data, int descriptor, std::uint32_t) {
    auto &program = *static_cast<Program *>(data);
    std::array<char, 512> text{};
    const ssize_t size = read(descriptor, text.data(), text.size());
    if (size <= 0) {
        pw_main_loop_quit(program.loop);
    }
    for (ssize_t index = 0; index < size; ++index) {
        obey(program, text[std::size_t(index)]);
    }
}

} // namespace

int main(int argc, char **argv) {
    pw_init(nullptr, nullptr);
    Program program;
    if (argc > 1) {
        program.name = argv[1];
    }
    if (argc > 2) {
        program.channels = std::uint32_t(std::atoi(argv[2]));
    }
    program.isInteger = argc > 3 && std::string_view(argv[3]) == "int16";
    program.isFixed = argc > 4;
    pw_loop_add_io(pw_main_loop_get_loop(program.loop), STDIN_FILENO, SPA_IO_IN, false, onInput,
                   &program);
    pw_main_loop_run(program.loop);
}
