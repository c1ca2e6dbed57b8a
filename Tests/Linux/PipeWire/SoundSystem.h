#pragma once

#include "MixerRoute.h"
#include "PipeWireAudioSystem.h"
#include "Program.h"

#include <optional>

namespace perchly {

// The outputs
inline const QString first = QStringLiteral("first");
inline const QString second = QStringLiteral("second");

/// Lists routes' nodes and the targets of streams, which should all be gone.
inline QString tracesOfRoutes() {
    const QStringList lines = output(QStringLiteral("pw-dump")).split(u'\n');
    return (lines.filter(QStringLiteral("\"node.name\": \"perchly.")) +
            lines.filter(QStringLiteral("\"key\": \"target.object\"")))
        .join(u'\n');
}

/// The audio system under test, started and complete.
class SoundSystem {
public:
    explicit SoundSystem(PipeWireAudioSystem::ApplicationFinder find = {})
        : system(std::move(find), QStringLiteral(ROUTE_KEEPER)) {
        system.start();
        if (!QTest::qWaitFor([this] { return system.processes().has_value(); }, 5000)) {
            qFatal("the sound system does not answer");
        }
    }

    [[nodiscard]] std::optional<AudioProcess> process(qint64 pid) const {
        const auto processes = system.processes();
        for (const AudioProcess &process : processes.value_or(QList<AudioProcess>())) {
            if (process.pid == pid) {
                return process;
            }
        }
        return std::nullopt;
    }

    /// 0 if the process does not play in time.
    [[nodiscard]] AudioObject waitForProcess(qint64 pid) const {
        std::optional<AudioProcess> found;
        const auto plays = [&] {
            found = process(pid);
            return found && found->isRunningOutput == true;
        };
        return QTest::qWaitFor(plays, 5000) ? found->object : 0;
    }

    /// Routes the player once it plays.
    [[nodiscard]] std::unique_ptr<MixerRoute> route(const Program &player, float gain = 1) {
        QString error;
        auto route = MixerRoute::make(system, waitForProcess(player->processId()), error);
        if (!route) {
            qFatal("%s", qPrintable(error));
        }
        route->setGain(gain);
        return route;
    }

    PipeWireAudioSystem system;
};

} // namespace perchly
