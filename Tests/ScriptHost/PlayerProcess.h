#pragma once

#include <QProcess>
#include <QTest>

namespace perchly {

/// A scripted player, on the bus while this object lives; see scripted_player.py.
class PlayerProcess {
public:
    explicit PlayerProcess(const char *name, const QByteArray &script = "{}") {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(
            QStringLiteral("/usr/bin/python3"),
            {QStringLiteral(SCRIPTED_PLAYER), QString::fromUtf8(name), QString::fromUtf8(script)});
        while (!m_process.canReadLine() && m_process.waitForReadyRead(10'000)) {
        }
        m_process.readLine(); // "ready"
    }
    ~PlayerProcess() {
        m_process.kill();
        m_process.waitForFinished();
        QTest::qSleep(20); // until the bus has noticed
    }

    /// The commands that the player received since the last call, joined by spaces.
    [[nodiscard]] QString commands() {
        QTest::qSleep(50);
        m_process.waitForReadyRead(50);
        return QString::fromUtf8(m_process.readAllStandardOutput()).simplified();
    }

private:
    QProcess m_process;
};

} // namespace perchly
