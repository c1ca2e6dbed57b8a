#pragma once

#include "FakeAudio.h"
#include "FakeClock.h"
#include "VolumeMixer.h"

#include <QtQml/qqmlregistration.h>

namespace perchly {

/// The volume mixer that a view is given, over a fake audio system.
class MixerFixture : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(perchly::VolumeMixer *mixer READ mixer CONSTANT FINAL)
public:
    using QObject::QObject;

    VolumeMixer *mixer() { return &m_mixer; }

    /// From now on the applications of those names play; the process of one is always the same.
    Q_INVOKABLE void play(const QStringList &names);
    Q_INVOKABLE void advance(int seconds) { m_clock.advance(std::chrono::seconds(seconds)); }
    /// The level of the application's route; −1 without one.
    Q_INVOKABLE double level(const QString &name) const;
    Q_INVOKABLE bool muted(const QString &name) const;

private:
    [[nodiscard]] AudioObject process(const QString &name) const;

    FakeAudioSystem m_audio;
    FakeClock m_clock;
    VolumeMixer m_mixer{m_audio, m_clock};
    QStringList m_known; ///< a name's place here is its process, less one
};

} // namespace perchly
