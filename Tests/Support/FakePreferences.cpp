#include "FakePreferences.h"

namespace perchly {

std::optional<PreferenceValue> FakePreferences::value(const QString &key) const {
    const auto found = values.constFind(key);
    return found == values.cend() ? std::nullopt : std::optional(found.value());
}

void FakePreferences::setValue(const QString &key, const PreferenceValue &value) {
    values.insert(key, value);
    written.append(key);
    Q_EMIT changed(key);
}

void FakePreferences::removeValue(const QString &key) {
    if (values.remove(key) > 0) {
        Q_EMIT changed(key);
    }
}

} // namespace perchly
