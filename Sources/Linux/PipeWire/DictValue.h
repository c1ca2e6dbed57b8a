#pragma once

#include <QString>

#include <spa/utils/dict.h>

#include <cstdint>
#include <optional>

namespace perchly {

/// Empty if the key is missing.
inline QString textOf(const spa_dict &properties, const char *key) {
    return QString::fromUtf8(spa_dict_lookup(&properties, key));
}

/// nullopt if the key is missing or its value is not a number.
inline std::optional<std::uint32_t> numberOf(const spa_dict &properties, const char *key) {
    bool isNumber = false;
    const std::uint32_t number = textOf(properties, key).toUInt(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

} // namespace perchly
