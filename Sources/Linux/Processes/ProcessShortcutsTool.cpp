#include "ProcessShortcutsTool.h"

#include "ShortcutsFolder.h"

#include <QFile>
#include <QStringDecoder>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr qsizetype mostOutput = 1 << 20; // some thousand names
constexpr auto listLimit = 10s;
constexpr auto runGrace = 2s; // to keep what it was working on

ShortcutsTool::Result resultOf(const ChildResult &child) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    const QString output = decoder(child.output);
    return {child.status.value_or(-1), decoder.hasError() ? QString() : output};
}

QString makeFolder() {
    const std::string failure = shortcuts::prepareFolder();
    return failure.empty() ? QString()
                           : QStringLiteral("The shortcuts folder cannot be made: %1.")
                                 .arg(QString::fromLocal8Bit(failure));
}

} // namespace

ProcessShortcutsTool::ProcessShortcutsTool(QString program)
    : m_program(std::move(program))
    , m_lists(2)
    , m_runs(2) {
    m_pool.setExpiryTimeout(1000);
}

Task ProcessShortcutsTool::execute(const QStringList &arguments, Completion completion) {
    const auto finish = [completion = std::move(completion)](const ChildResult &child) {
        completion(resultOf(child));
    };
    if (arguments.value(0) == QLatin1StringView("run")) {
        return m_runs.run(m_program, arguments, {.mostOutput = mostOutput, .grace = runGrace},
                          OnStop::LeaveChild, finish);
    }
    return m_lists.run(m_program, arguments, {.time = listLimit, .mostOutput = mostOutput},
                       OnStop::EndChild, finish);
}

void ProcessShortcutsTool::stopRuns() {
    m_runs.endAll();
}

QString ProcessShortcutsTool::folder() const {
    return QFile::decodeName(shortcuts::folder().c_str());
}

void ProcessShortcutsTool::prepareFolder(FolderCompletion completion) {
    m_pool.start([this, completion = std::move(completion)]() mutable {
        const QString error = makeFolder();
        QMetaObject::invokeMethod(
            &m_receiver, [completion = std::move(completion), error] { completion(error); },
            Qt::QueuedConnection);
    });
}

} // namespace perchly
