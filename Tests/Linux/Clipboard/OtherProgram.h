#pragma once

#include <QProcess>
#include <QTest>

namespace perchly {

/// A program that owns the clipboard, or asks for it. Ends with this object. For tests only.
class OtherProgram {
public:
    /// Starts SelectionOwner and waits until it owns the clipboard.
    explicit OtherProgram(const QStringList &arguments) {
        m_process.start(QStringLiteral(SELECTION_OWNER), arguments);
        if (!waitFor("owns"))
            qFatal("The owner of the clipboard does not start.");
    }
    ~OtherProgram() { kill(); }

    void kill() {
        m_process.kill();
        m_process.waitForFinished();
    }

    /// Waits until it has said so.
    [[nodiscard]] bool waitFor(const QByteArray &line, int milliseconds = 10'000) {
        return QTest::qWaitFor([&] { return said().contains(line); }, milliseconds);
    }

    /// What it has said so far, line by line.
    [[nodiscard]] QList<QByteArray> said() {
        m_output += m_process.readAllStandardOutput();
        return m_output.split('\n');
    }

    /// Which targets it was asked for, in order.
    [[nodiscard]] QStringList asked() {
        QStringList targets;
        for (const QByteArray &line : said())
            if (line.startsWith("asked "))
                targets.append(QString::fromUtf8(line.mid(6)));
        return targets;
    }

    /// What xclip gets for this target; null when there is nothing.
    [[nodiscard]] static QByteArray paste(const QString &target) {
        QProcess process;
        process.start(QStringLiteral("xclip"),
                      {QStringLiteral("-selection"), QStringLiteral("clipboard"),
                       QStringLiteral("-out"), QStringLiteral("-target"), target});
        // Our own event loop may be what it waits for.
        const bool hasEnded =
            QTest::qWaitFor([&process] { return process.state() == QProcess::NotRunning; }, 10'000);
        return hasEnded && process.exitCode() == 0 ? process.readAllStandardOutput() : QByteArray();
    }

private:
    QProcess m_process;
    QByteArray m_output;
};

} // namespace perchly
