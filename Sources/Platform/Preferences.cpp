#include "Preferences.h"

#include <algorithm>
#include <cmath>

namespace perchly {

namespace {

template <class T>
std::optional<T> valueOfType(const Preferences &preferences, const QString &key) {
    const auto stored = preferences.value(key);
    if (!stored || !std::holds_alternative<T>(*stored)) {
        return std::nullopt;
    }
    return std::get<T>(*stored);
}

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

std::optional<bool> Preferences::boolean(const QString &key) const {
    return valueOfType<bool>(*this, key);
}

std::optional<double> Preferences::number(const QString &key) const {
    return valueOfType<double>(*this, key);
}

std::optional<qint64> Preferences::wholeNumber(const QString &key) const {
    constexpr double largest = 9007199254740992.0; // 2^53: beyond it a double skips whole numbers
    const auto stored = number(key);
    if (!stored || !(std::abs(*stored) <= largest) || std::trunc(*stored) != *stored) {
        return std::nullopt;
    }
    return static_cast<qint64>(*stored);
}

std::optional<QString> Preferences::string(const QString &key) const {
    return valueOfType<QString>(*this, key);
}

std::optional<QByteArray> Preferences::data(const QString &key) const {
    return valueOfType<QByteArray>(*this, key);
}

} // namespace perchly
