#include "FakePreferences.h"

namespace perchly {

std::optional<PreferenceValue> FakePreferences::value(const QString &key) const {
    const auto found = values.constFind(key);
    return found == values.cend() ? std::nullopt : std::optional(found.value());
}

void FakePreferences::store(const PreferenceEntries &entries) {
    QStringList keys;
    for (const auto &[key, value] : entries) {
        values.insert(key, value);
        keys.append(key);
    }
    written.append(keys.join(u'+'));
    for (const auto &[key, value] : entries) {
        Q_EMIT changed(key);
    }
}

void FakePreferences::removeValue(const QString &key) {
    if (values.remove(key) > 0) {
        Q_EMIT changed(key);
    }
}

} // namespace perchly
