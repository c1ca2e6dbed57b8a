#pragma once

#include "Preferences.h"

#include <QJsonValue>

#include <optional>

namespace perchly {

/// How one preference stands in the JSON document. A boolean, a number and a string stand as
/// themselves. Data stands as an object of exactly two strings, so that a stored document stays
/// legible: {"data": "…", "encoding": "utf-8"}, or "base64" where the bytes are not valid UTF-8.
/// The number must be finite, since JSON has no other.
[[nodiscard]] QJsonValue preferenceToJson(const PreferenceValue &value);

/// The reverse; nothing for any other kind of JSON value.
[[nodiscard]] std::optional<PreferenceValue> preferenceFromJson(const QJsonValue &json);

} // namespace perchly
