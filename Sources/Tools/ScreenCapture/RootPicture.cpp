#include "RootPicture.h"

#include <xcb/xcb.h>

#include <cstdlib>

namespace perchly {

namespace {

QImage::Format formatOf(int depth) {
    switch (depth) {
    case 24:
    case 32:
        return QImage::Format_RGB32;
    case 30:
        return QImage::Format_RGB30;
    case 16:
        return QImage::Format_RGB16;
    default:
        return QImage::Format_Invalid;
    }
}

} // namespace

QImage takeRootPicture(xcb_connection_t *connection) {
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const QSize size(screen->width_in_pixels, screen->height_in_pixels);
    xcb_get_image_reply_t *reply =
        xcb_get_image_reply(connection,
                            xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root, 0, 0,
                                          screen->width_in_pixels, screen->height_in_pixels, ~0U),
                            nullptr);
    if (reply == nullptr) {
        return {};
    }
    const QImage::Format format = formatOf(reply->depth);
    const int lineBytes = xcb_get_image_data_length(reply) / size.height();
    if (format == QImage::Format_Invalid ||
        lineBytes < size.width() * (reply->depth > 16 ? 4 : 2)) {
        std::free(reply);
        return {};
    }
    // The picture owns the reply.
    return QImage(xcb_get_image_data(reply), size.width(), size.height(), lineBytes, format,
                  std::free, reply)
        .convertToFormat(QImage::Format_RGB32);
}

} // namespace perchly
