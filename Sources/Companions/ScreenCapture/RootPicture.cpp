#include "RootPicture.h"

#include "XcbPointer.h"

#include <cstdlib>
#include <xcb/xcb.h>

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
    const int width = screen->width_in_pixels;
    const int height = screen->height_in_pixels;
    const auto cookie = xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root, 0, 0,
                                      screen->width_in_pixels, screen->height_in_pixels, ~0U);
    XcbPointer<xcb_get_image_reply_t> reply(xcb_get_image_reply(connection, cookie, nullptr));
    const QImage::Format format = reply ? formatOf(reply->depth) : QImage::Format_Invalid;
    if (format == QImage::Format_Invalid) {
        return {};
    }
    const uchar *pixels = xcb_get_image_data(reply.get());
    const int lineBytes = xcb_get_image_data_length(reply.get()) / height;
    // The image owns the reply.
    return QImage(pixels, width, height, lineBytes, format, std::free, reply.release())
        .convertToFormat(QImage::Format_RGB32);
}

} // namespace perchly
