#include "OutputPicture.h"

#include "WaylandConnection.h"
#include "wlr-screencopy-unstable-v1-client.h"

#include <sys/mman.h>
#include <unistd.h>

namespace perchly {

namespace {

struct Frame {
    uint32_t format = 0;
    int width = 0;
    int height = 0;
    int stride = 0;
    bool isUpsideDown = false;
    bool isReady = false;
    bool hasFailed = false;
};

Frame &frameOf(void *data) {
    return *static_cast<Frame *>(data);
}

constexpr zwlr_screencopy_frame_v1_listener frameListener{
    .buffer =
        [](void *data, zwlr_screencopy_frame_v1 *, uint32_t format, uint32_t width, uint32_t height,
           uint32_t stride) {
            Frame &frame = frameOf(data);
            frame.format = format;
            frame.width = int(width);
            frame.height = int(height);
            frame.stride = int(stride);
        },
    .flags =
        [](void *data, zwlr_screencopy_frame_v1 *, uint32_t flags) {
            frameOf(data).isUpsideDown = (flags & ZWLR_SCREENCOPY_FRAME_V1_FLAGS_Y_INVERT) != 0;
        },
    .ready = [](void *data, zwlr_screencopy_frame_v1 *, uint32_t, uint32_t,
                uint32_t) { frameOf(data).isReady = true; },
    .failed = [](void *data, zwlr_screencopy_frame_v1 *) { frameOf(data).hasFailed = true; },
    .damage = nullptr,       // only after copy_with_damage
    .linux_dmabuf = nullptr, // since version 3, as the last one
    .buffer_done = nullptr,
};

QImage::Format imageFormat(uint32_t format) {
    switch (format) {
    case WL_SHM_FORMAT_XRGB8888:
    case WL_SHM_FORMAT_ARGB8888:
        return QImage::Format_RGB32;
    case WL_SHM_FORMAT_XBGR8888:
    case WL_SHM_FORMAT_ABGR8888:
        return QImage::Format_RGBX8888;
    case WL_SHM_FORMAT_XRGB2101010:
    case WL_SHM_FORMAT_ARGB2101010:
        return QImage::Format_RGB30;
    case WL_SHM_FORMAT_XBGR2101010:
    case WL_SHM_FORMAT_ABGR2101010:
        return QImage::Format_BGR30;
    default:
        return QImage::Format_Invalid;
    }
}

/// Memory that the compositor writes to.
class SharedMemory {
public:
    explicit SharedMemory(int bytes)
        : m_bytes(bytes)
        , m_file(memfd_create("perchly-capture", MFD_CLOEXEC)) {
        if (m_file >= 0 && ftruncate(m_file, bytes) == 0) {
            m_memory = mmap(nullptr, std::size_t(bytes), PROT_READ, MAP_SHARED, m_file, 0);
        }
    }
    ~SharedMemory() {
        if (pixels() != nullptr) {
            munmap(m_memory, std::size_t(m_bytes));
        }
        close(m_file);
    }
    SharedMemory(const SharedMemory &) = delete;
    SharedMemory &operator=(const SharedMemory &) = delete;

    [[nodiscard]] int file() const { return m_file; }
    [[nodiscard]] const uchar *pixels() const {
        return m_memory == MAP_FAILED ? nullptr : static_cast<const uchar *>(m_memory);
    }

private:
    int m_bytes;
    int m_file;
    void *m_memory = MAP_FAILED;
};

QImage copied(const WaylandConnection &connection, zwlr_screencopy_frame_v1 *source,
              const Frame &frame) {
    const int bytes = frame.stride * frame.height;
    const SharedMemory memory(bytes);
    const QImage::Format format = imageFormat(frame.format);
    if (memory.pixels() == nullptr || format == QImage::Format_Invalid) {
        return {};
    }
    wl_shm_pool *pool = wl_shm_create_pool(connection.shm(), memory.file(), bytes);
    wl_buffer *buffer =
        wl_shm_pool_create_buffer(pool, 0, frame.width, frame.height, frame.stride, frame.format);
    zwlr_screencopy_frame_v1_copy(source, buffer);
    while (!frame.isReady && !frame.hasFailed && connection.dispatch()) {
    }
    wl_buffer_destroy(buffer);
    wl_shm_pool_destroy(pool);
    if (!frame.isReady) {
        return {};
    }
    const QImage shared(memory.pixels(), frame.width, frame.height, frame.stride, format);
    const QImage own = shared.convertToFormat(QImage::Format_RGB32).copy();
    return frame.isUpsideDown ? own.mirrored() : own;
}

} // namespace

QImage takeOutputPicture(const WaylandConnection &connection, QScreen &screen) {
    auto *manager = static_cast<zwlr_screencopy_manager_v1 *>(
        connection.bind(zwlr_screencopy_manager_v1_interface, 1));
    if (manager == nullptr) {
        return {};
    }
    Frame frame;
    zwlr_screencopy_frame_v1 *source =
        zwlr_screencopy_manager_v1_capture_output(manager, 0, WaylandConnection::outputOf(screen));
    zwlr_screencopy_frame_v1_add_listener(source, &frameListener, &frame);
    while (frame.width == 0 && !frame.hasFailed && connection.dispatch()) {
    }
    QImage picture = frame.width > 0 ? copied(connection, source, frame) : QImage();
    zwlr_screencopy_frame_v1_destroy(source);
    zwlr_screencopy_manager_v1_destroy(manager);
    return picture;
}

} // namespace perchly
