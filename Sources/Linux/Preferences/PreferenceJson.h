#pragma once

#include "Preferences.h"

#include <QJsonValue>

#include <optional>

namespace perchly {

/// How one preference stands in the JSON document: a boolean, a number and a string as themselves,
/// data as {"data": "…", "encoding": "utf-8"}. The number must be finite, since JSON has no other.
[[nodiscard]] QJsonValue preferenceToJson(const PreferenceValue &value);

/// The reverse; nothing for any other kind of JSON value.
[[nodiscard]] std::optional<PreferenceValue> preferenceFromJson(const QJsonValue &json);

} // namespace perchly
