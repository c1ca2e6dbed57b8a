#include "MixerRoute.h"

#include <QCoreApplication>

namespace perchly {

std::unique_ptr<MixerRoute> MixerRoute::make(AudioSystem &system, AudioObject process,
                                             QString &error) {
    auto made = std::make_unique<MixerRoute>();
    made->m_ring = {perchly_ring_create(), perchly_ring_destroy};
    if (!made->m_ring) {
        error = QCoreApplication::translate("MixerRoute", "Cannot allocate audio buffer");
        return nullptr;
    }
    made->m_route = system.route(process, made->m_ring, error);
    return made->m_route ? std::move(made) : nullptr;
}

} // namespace perchly
