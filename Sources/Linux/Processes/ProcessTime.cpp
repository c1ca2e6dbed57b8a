#include "ProcessTime.h"

#include <QByteArrayList>
#include <QFile>

namespace perchly {

std::optional<quint64> processStartTime(std::int32_t pid) {
    QFile file(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    // The name in parentheses may contain anything. After it come the state and, 19 fields later,
    // the time.
    const QByteArray line = file.readAll();
    const QByteArrayList fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    constexpr qsizetype timeField = 19;
    if (fields.size() <= timeField || fields[0] == "Z" || fields[0] == "X") {
        return std::nullopt;
    }
    return fields[timeField].toULongLong();
}

} // namespace perchly
