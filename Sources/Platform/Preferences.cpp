#include "Preferences.h"

#include <algorithm>
#include <cmath>

namespace perchly {

namespace {

qsizetype byteCount(const std::optional<PreferenceValue> &value) {
    if (!value) {
        return 0;
    }
    if (const auto *text = std::get_if<QString>(&*value)) {
        return text->toUtf8().size();
    }
    const auto *data = std::get_if<QByteArray>(&*value);
    return data != nullptr ? data->size() : 0;
}

} // namespace

bool Preferences::setValues(const PreferenceEntries &entries) {
    const bool fits = std::ranges::all_of(
        entries, [this](const auto &entry) { return checkSize(entry.first, entry.second); });
    if (fits) {
        store(entries);
    }
    return fits;
}

bool Preferences::checkSize(const QString &key, const PreferenceValue &newValue) {
    const qsizetype bytes = byteCount(newValue);
    const bool fits = bytes <= maxValueBytes || bytes <= byteCount(value(key));
    if (!fits) {
        Q_EMIT tooLarge();
    }
    return fits;
}

std::optional<qint64> Preferences::wholeNumber(const QString &key) const {
    constexpr double max = 9007199254740992.0; // 2^53: beyond it a double skips whole numbers
    const auto stored = number(key);
    if (!stored || !(std::abs(*stored) <= max) || std::trunc(*stored) != *stored) {
        return std::nullopt;
    }
    return static_cast<qint64>(*stored);
}

} // namespace perchly
