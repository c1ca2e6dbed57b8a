#pragma once

#include <QByteArray>
#include <QProcess>

#include <chrono>

namespace perchly {

/// An X server for one test, named by DISPLAY, which may be stopped.
class OwnServer {
public:
    OwnServer() {
        m_process.start(QStringLiteral("Xvfb"),
                        {QStringLiteral("-displayfd"), QStringLiteral("1"),
                         QStringLiteral("-nolisten"), QStringLiteral("tcp")});
        QByteArray number;
        while (!number.endsWith('\n') && m_process.waitForReadyRead(10000))
            number += m_process.readAllStandardOutput();
        qputenv("DISPLAY", ':' + number.trimmed());
    }
    ~OwnServer() {
        m_process.kill();
        m_process.waitForFinished();
    }
    OwnServer(const OwnServer &) = delete;
    OwnServer &operator=(const OwnServer &) = delete;

    void stop() const { signal("STOP"); }
    void goOn() const { signal("CONT"); }

    /// Stops the server for that long, also while the test waits for it.
    void stall(std::chrono::milliseconds time) const {
        stop();
        QProcess::startDetached(QStringLiteral("sh"),
                                {QStringLiteral("-c"), QStringLiteral("sleep %1; kill -CONT %2")
                                                           .arg(double(time.count()) / 1000)
                                                           .arg(m_process.processId())});
    }

private:
    void signal(const char *name) const {
        QProcess::execute(QStringLiteral("kill"), {QStringLiteral("-s"), QString::fromLatin1(name),
                                                   QString::number(m_process.processId())});
    }

    QProcess m_process;
};

} // namespace perchly
