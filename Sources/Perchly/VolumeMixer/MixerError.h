#pragma once

#include "AudioStream.h"

#include <QString>

#include <exception>

namespace perchly {

/// Why the mixer could not do what was asked of it, in words for the person.
class MixerError : public std::exception {
public:
    explicit MixerError(QString message);

    [[nodiscard]] const QString &description() const { return m_message; }
    /// The same in UTF-8.
    [[nodiscard]] const char *what() const noexcept override { return m_utf8.constData(); }

private:
    QString m_message;
    QByteArray m_utf8;
};

/// Throws a MixerError "message (status)." unless the status is no error.
void check(AudioStatus status, const QString &message);

} // namespace perchly
