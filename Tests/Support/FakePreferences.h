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
    void removeValue(const QString &key) override;

    QMap<QString, PreferenceValue> values;
    QStringList written; ///< every write in order: its key, or its keys joined by +

private:
    void store(const PreferenceEntries &entries) override;
};

} // namespace perchly
