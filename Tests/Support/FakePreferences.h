#pragma once

#include "Preferences.h"

#include <QMap>
#include <QStringList>

namespace perchly {

/// Preferences in memory that record each write.
class FakePreferences : public Preferences {
public:
    std::optional<PreferenceValue> value(const QString &key) const override {
        const auto found = values.constFind(key);
        return found == values.cend() ? std::nullopt : std::optional(found.value());
    }
    void removeValue(const QString &key) override {
        if (values.remove(key) > 0) {
            Q_EMIT changed(key);
        }
    }

    bool isComplete() const override { return complete; }

    QMap<QString, PreferenceValue> values;
    bool complete = true;
    QStringList written; ///< every write in order: its key, or its keys joined by +

private:
    void store(const PreferenceEntries &entries) override {
        QStringList keys;
        for (const auto &[key, value] : entries) {
            values.insert(key, value);
            keys.append(key);
        }
        written.append(keys.join(u'+'));
        for (const QString &key : std::as_const(keys)) {
            Q_EMIT changed(key);
        }
    }
};

} // namespace perchly
