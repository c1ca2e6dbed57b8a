#include "GioWorkers.h"

#include "GioOwned.h"

#include <gio/gio.h>

namespace perchly {

GioWorkers::GioWorkers()
    : m_cancellable(g_cancellable_new(), gio::Release()) {}

GioWorkers::~GioWorkers() {
    g_cancellable_cancel(m_cancellable.get());
}

} // namespace perchly
