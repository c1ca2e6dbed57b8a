#pragma once

#include "Preferences.h"

#include <QMap>
#include <QStringList>

namespace perchly {

/// Preferences in memory, with a record of what was written.
class FakePreferences : public Preferences {
public:
    using Preferences::Preferences;

    std::optional<PreferenceValue> value(const QString &key) const override;
    void setValue(const QString &key, const PreferenceValue &value) override;
    void removeValue(const QString &key) override;

    QMap<QString, PreferenceValue> values;
    QStringList written; ///< every key that was set, in order
};

} // namespace perchly
