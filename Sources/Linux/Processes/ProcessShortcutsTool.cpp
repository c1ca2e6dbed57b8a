#include "ProcessShortcutsTool.h"

#include "ShortcutsFolder.h"

#include <QFile>
#include <QStringDecoder>

namespace perchly {

using namespace std::chrono_literals;

namespace {

constexpr qsizetype mostOutput = 1 << 20; // some thousand names
constexpr auto listLimit = 10s;

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
    , m_runs(4) { // a run, which may take for ever, and a list or two
    m_pool.setExpiryTimeout(1000);
}

Task ProcessShortcutsTool::execute(const QStringList &arguments, Completion completion) {
    const bool runs = arguments.value(0) == QLatin1StringView("run");
    ChildLimits limits{.mostOutput = mostOutput};
    if (!runs) {
        limits.time = listLimit;
    }
    return m_runs.run(m_program, arguments, limits, runs ? OnStop::LeaveChild : OnStop::EndChild,
                      [completion = std::move(completion)](const ChildResult &child) {
                          completion(resultOf(child));
                      });
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
