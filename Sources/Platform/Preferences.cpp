#include "Preferences.h"

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

} // namespace

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
