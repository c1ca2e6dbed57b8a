#include "MixerError.h"

namespace perchly {

MixerError::MixerError(QString message)
    : m_message(std::move(message))
    , m_utf8(m_message.toUtf8()) {}

void check(AudioStatus status, const QString &message) {
    if (status != noAudioError) {
        throw MixerError(QStringLiteral("%1 (%2).").arg(message, QString::number(status)));
    }
}

} // namespace perchly
