// Measures on a Wayland compositor, by commands on stdin, one per line:
//   watch X Y WIDTH HEIGHT   prints "ready", then the times at which this part was drawn over, and
//                            at which it looked different
//   copy TEXT                copies the text; prints the nanoseconds until it was first fetched
// Times are nanoseconds of CLOCK_MONOTONIC. It ends if nothing happens within 10 s.

#include "wlr-data-control-unstable-v1-client.h"
#include "wlr-screencopy-unstable-v1-client.h"

#include <chrono>
#include <cstring>
#include <iostream>
#include <memory>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr unsigned timeoutSeconds = 10;

wl_display *display = nullptr;
wl_output *output = nullptr;
wl_seat *seat = nullptr;
wl_shm *shm = nullptr;
zwlr_screencopy_manager_v1 *pictures = nullptr;
zwlr_data_control_manager_v1 *clipboards = nullptr;

template <class Object>
void bindIf(const char *offered, wl_registry *registry, uint32_t name, Object *&object,
            const wl_interface &interface, uint32_t version) {
    if (std::strcmp(offered, interface.name) == 0) {
        object = static_cast<Object *>(wl_registry_bind(registry, name, &interface, version));
    }
}

constexpr wl_registry_listener globalsListener{
    [](void *, wl_registry *registry, uint32_t name, const char *offered, uint32_t) {
        bindIf(offered, registry, name, output, wl_output_interface, 1);
        bindIf(offered, registry, name, seat, wl_seat_interface, 1);
        bindIf(offered, registry, name, shm, wl_shm_interface, 1);
        bindIf(offered, registry, name, pictures, zwlr_screencopy_manager_v1_interface, 2);
        bindIf(offered, registry, name, clipboards, zwlr_data_control_manager_v1_interface, 1);
    },
    [](void *, wl_registry *, uint32_t) {}};

int64_t now() {
    return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::nanoseconds(1);
}

void dispatch() {
    if (wl_display_dispatch(display) < 0) {
        std::exit(EXIT_FAILURE);
    }
}

struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    [[nodiscard]] bool isWithin(const Rect &other) const {
        return x >= other.x && y >= other.y && x + width <= other.x + other.width &&
               y + height <= other.y + other.height;
    }
};

/// A picture of a part of the display, taken at once or when something is next drawn.
class Picture {
public:
    enum class When { AtOnce, Drawn };

    Picture(const Rect &rect, When when)
        : m_rect(rect)
        , m_frame(zwlr_screencopy_manager_v1_capture_output_region(pictures, 0, output, rect.x,
                                                                   rect.y, rect.width, rect.height))
        , m_when(when) {
        zwlr_screencopy_frame_v1_add_listener(m_frame, &listener, this);
    }
    ~Picture() {
        close(m_file);
        wl_buffer_destroy(m_buffer);
        zwlr_screencopy_frame_v1_destroy(m_frame);
    }
    Picture(const Picture &) = delete;
    Picture &operator=(const Picture &) = delete;

    [[nodiscard]] bool isReady() const { return m_time != 0; }
    [[nodiscard]] int64_t time() const { return m_time; }
    /// Whether the smallest rectangle around all that was drawn contains the part.
    [[nodiscard]] bool isDrawnOver() const { return m_isDrawnOver; }

    std::string pixels() {
        while (!isReady()) {
            dispatch();
        }
        if (pread(m_file, m_pixels.data(), m_pixels.size(), 0) < 0) {
            std::exit(EXIT_FAILURE);
        }
        return m_pixels;
    }

private:
    Rect m_rect;
    zwlr_screencopy_frame_v1 *m_frame;
    When m_when;
    std::string m_pixels;
    wl_buffer *m_buffer = nullptr;
    int m_file = -1;
    bool m_isDrawnOver = false;
    int64_t m_time = 0;

    void copy(uint32_t format, int width, int height, int stride) {
        m_pixels.resize(std::size_t(stride) * std::size_t(height));
        m_file = memfd_create("picture", MFD_CLOEXEC);
        if (ftruncate(m_file, off_t(m_pixels.size())) != 0) {
            std::exit(EXIT_FAILURE);
        }
        wl_shm_pool *pool = wl_shm_create_pool(shm, m_file, int(m_pixels.size()));
        m_buffer = wl_shm_pool_create_buffer(pool, 0, width, height, stride, format);
        wl_shm_pool_destroy(pool);
        if (m_when == When::Drawn) {
            zwlr_screencopy_frame_v1_copy_with_damage(m_frame, m_buffer);
        } else {
            zwlr_screencopy_frame_v1_copy(m_frame, m_buffer);
        }
    }

    static constexpr zwlr_screencopy_frame_v1_listener listener{
        .buffer =
            [](void *data, zwlr_screencopy_frame_v1 *, uint32_t format, uint32_t width,
               uint32_t height, uint32_t stride) {
                static_cast<Picture *>(data)->copy(format, int(width), int(height), int(stride));
            },
        .flags = [](void *, zwlr_screencopy_frame_v1 *, uint32_t) {},
        .ready = [](void *data, zwlr_screencopy_frame_v1 *, uint32_t, uint32_t,
                    uint32_t) { static_cast<Picture *>(data)->m_time = now(); },
        .failed = [](void *, zwlr_screencopy_frame_v1 *) { std::exit(EXIT_FAILURE); },
        .damage =
            [](void *data, zwlr_screencopy_frame_v1 *, uint32_t x, uint32_t y, uint32_t width,
               uint32_t height) {
                auto *picture = static_cast<Picture *>(data);
                picture->m_isDrawnOver =
                    picture->m_rect.isWithin({int(x), int(y), int(width), int(height)});
            },
        .linux_dmabuf = nullptr, // since version 3, as the last one
        .buffer_done = nullptr,
    };
};

/// Returns the times at which the part was drawn over and at which it changed.
std::pair<int64_t, int64_t> watch(const Rect &rect) {
    auto next = std::make_unique<Picture>(rect, Picture::When::Drawn);
    const std::string before = Picture(rect, Picture::When::AtOnce).pixels();
    if (next->isReady()) { // it shows an earlier frame
        next = std::make_unique<Picture>(rect, Picture::When::Drawn);
    }
    wl_display_roundtrip(display);
    std::cout << "ready" << std::endl;
    int64_t drawn = 0;
    while (next->pixels() == before) {
        if (drawn == 0 && next->isDrawnOver()) {
            drawn = next->time();
        }
        next = std::make_unique<Picture>(rect, Picture::When::Drawn);
    }
    return {drawn == 0 ? next->time() : drawn, next->time()};
}

struct Copy {
    std::string text;
    int64_t fetched = 0;
};

constexpr zwlr_data_control_source_v1_listener sourceListener{
    .send =
        [](void *data, zwlr_data_control_source_v1 *, const char *, int file) {
            auto *copy = static_cast<Copy *>(data);
            if (write(file, copy->text.data(), copy->text.size()) > 0 && copy->fetched == 0) {
                copy->fetched = now();
            }
            close(file);
        },
    .cancelled = [](void *, zwlr_data_control_source_v1 *) {},
};

int64_t timeToFetch(const std::string &text) {
    Copy copy{.text = text};
    auto *source = zwlr_data_control_manager_v1_create_data_source(clipboards);
    zwlr_data_control_source_v1_add_listener(source, &sourceListener, &copy);
    zwlr_data_control_source_v1_offer(source, "text/plain;charset=utf-8");
    auto *device = zwlr_data_control_manager_v1_get_data_device(clipboards, seat);
    const int64_t start = now();
    zwlr_data_control_device_v1_set_selection(device, source);
    while (copy.fetched == 0) {
        dispatch();
    }
    zwlr_data_control_source_v1_destroy(source);
    zwlr_data_control_device_v1_destroy(device);
    wl_display_roundtrip(display);
    return copy.fetched - start;
}

} // namespace

int main() {
    display = wl_display_connect(nullptr);
    if (display == nullptr) {
        return EXIT_FAILURE;
    }
    wl_registry *registry = wl_display_get_registry(display);
    wl_registry_add_listener(registry, &globalsListener, nullptr);
    wl_display_roundtrip(display);
    std::string command;
    std::string text;
    Rect rect;
    while (std::cin >> command) {
        alarm(timeoutSeconds);
        if (command == "watch" && std::cin >> rect.x >> rect.y >> rect.width >> rect.height) {
            const auto [drawn, changed] = watch(rect);
            std::cout << drawn << ' ' << changed << std::endl;
        } else if (command == "copy" && std::cin >> text) {
            std::cout << timeToFetch(text) << std::endl;
        }
        alarm(0);
    }
    return EXIT_SUCCESS;
}
