#pragma once

#include <QByteArray>
#include <QProcess>

namespace perchly {

/// An X server for one test, which may be stopped or killed.
class OwnServer {
public:
    OwnServer() {
        m_process.start(QStringLiteral("Xvfb"),
                        {QStringLiteral("-displayfd"), QStringLiteral("1"),
                         QStringLiteral("-nolisten"), QStringLiteral("tcp")});
        while (!m_name.endsWith('\n') && m_process.waitForReadyRead(10000))
            m_name += m_process.readAllStandardOutput();
        m_name = ':' + m_name.trimmed();
    }
    ~OwnServer() { kill(); }
    OwnServer(const OwnServer &) = delete;
    OwnServer &operator=(const OwnServer &) = delete;

    void kill() {
        m_process.kill();
        m_process.waitForFinished();
    }

    void signal(const char *name) const {
        QProcess::execute(QStringLiteral("kill"),
                          {QString::fromLatin1(name), QString::number(m_process.processId())});
    }
    QByteArray name() const { return m_name; }

private:
    QProcess m_process;
    QByteArray m_name;
};

} // namespace perchly
