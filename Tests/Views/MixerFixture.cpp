#include "MixerFixture.h"

namespace perchly {

void MixerFixture::play(const QStringList &names) {
    m_audio.list = QList<AudioProcess>();
    for (const QString &name : names) {
        if (!m_known.contains(name)) {
            m_known.append(name);
        }
        const AudioObject object = process(name);
        m_audio.applications.insert(object, {name, {}});
        m_audio.list->append({object, std::int32_t(object), true, {}});
    }
}

AudioObject MixerFixture::process(const QString &name) const {
    return AudioObject(m_known.indexOf(name) + 1);
}

double MixerFixture::level(const QString &name) const {
    const auto found = m_mixer.levels().find(process(name));
    return found == m_mixer.levels().end() ? -1 : double(found->second);
}

bool MixerFixture::muted(const QString &name) const {
    return m_mixer.muted().contains(process(name));
}

} // namespace perchly
