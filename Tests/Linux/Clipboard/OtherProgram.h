#pragma once

#include <QProcess>
#include <QTest>

namespace perchly {

/// Another program that owns the clipboard, ended with this object. For tests only.
class OtherProgram {
public:
    /// Starts selection_owner.py with these arguments and waits until it owns the clipboard.
    explicit OtherProgram(const QString &words) {
        m_process.start(QStringLiteral(SELECTION_OWNER), words.split(u' '));
        if (!waitFor("owns"))
            qFatal("selection_owner.py does not start.");
    }
    ~OtherProgram() { kill(); }

    void kill() {
        m_process.kill();
        m_process.waitForFinished();
    }

    [[nodiscard]] bool hasSaid(const QByteArray &text) {
        m_output += m_process.readAllStandardOutput();
        return m_output.contains(text);
    }
    [[nodiscard]] bool waitFor(const QByteArray &text) {
        return QTest::qWaitFor([&] { return hasSaid(text); }, 30'000);
    }

    /// The output of xclip for this target; null if it gets nothing.
    [[nodiscard]] static QByteArray paste(const QString &target) {
        QProcess process;
        process.startCommand(QStringLiteral("xclip -selection clipboard -o -target ") + target);
        // This program may have to answer xclip from its event loop.
        const bool hasEnded =
            QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; });
        return hasEnded && process.exitCode() == 0 ? process.readAllStandardOutput() : QByteArray();
    }

private:
    QProcess m_process;
    QByteArray m_output;
};

} // namespace perchly
