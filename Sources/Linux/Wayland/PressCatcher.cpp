#include "PressCatcher.h"

#include "PanelWindow.h"
#include "WaylandConnection.h"

#include <QFile>

#include <sys/mman.h>
#include <wayland-client-protocol.h>

namespace perchly {

PressCatcher::PressCatcher(WaylandConnection &connection, QScreen &screen, Place place, QSize size,
                           const QRegion &free)
    : m_role(connection, *this, "perchly-outside",
             place == Place::Panels ? LayerSurface::Layer::Top : LayerSurface::Layer::Overlay) {
    preparePanel(*this);
    const QRect whole(QPoint(), size);
    m_role.place(screen, whole,
                 place == Place::FreeArea ? LayerSurface::Origin::FreeArea
                                          : LayerSurface::Origin::Display);
    m_role.setInputRegion(QRegion(whole) - free);
    show();
    attachBuffer(connection);
}

PressCatcher::~PressCatcher() {
    wl_buffer_destroy(m_buffer);
}

/// A picture that Qt paints would take megabytes. Pixels that are never written take no memory.
void PressCatcher::attachBuffer(const WaylandConnection &connection) {
    const QSize pixels = size() * devicePixelRatio();
    const int stride = pixels.width() * 4;
    const int bytes = stride * pixels.height();
    QFile file;
    static_cast<void>(file.open(memfd_create("perchly-outside", MFD_CLOEXEC), QIODevice::ReadWrite,
                                QFileDevice::AutoCloseHandle));
    file.resize(bytes);
    wl_shm_pool *pool = wl_shm_create_pool(connection.shm(), file.handle(), bytes);
    m_buffer = wl_shm_pool_create_buffer(pool, 0, pixels.width(), pixels.height(), stride,
                                         WL_SHM_FORMAT_ARGB8888);
    wl_shm_pool_destroy(pool);
    wl_surface *surface = WaylandConnection::surfaceOf(*this);
    wl_surface_attach(surface, m_buffer, 0, 0);
    wl_surface_commit(surface);
    connection.flush();
}

void PressCatcher::mousePressEvent(QMouseEvent * /*event*/) {
    Q_EMIT pressed();
}

} // namespace perchly
