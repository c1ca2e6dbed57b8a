#pragma once

#include "PreferenceFile.h"
#include "Preferences.h"

#include <QDir>

#include <map>
#include <optional>

namespace perchly {

/// The preferences as JSON: one file for the settings, and beside it "<key>.json" for each of
/// keys::longValues. PreferenceFile.h describes how they are written.
///
/// Booleans, numbers and strings are stored as such, data as {"data": "…", "encoding": "utf-8"}.
/// JSON values of other kinds read as absent and stay in the file. Numbers must be finite, since
/// JSON has no others.
class JsonPreferences : public Preferences {
    Q_OBJECT
public:
    /// Takes the absolute path of the settings file. Long values that earlier versions stored in it
    /// are used until they have files of their own.
    explicit JsonPreferences(const QString &path, QObject *parent = nullptr);

    /// "perchly/preferences.json" in the user's configuration folder.
    [[nodiscard]] static QString defaultPath();

    [[nodiscard]] std::optional<PreferenceValue> value(const QString &key) const override;
    [[nodiscard]] bool isComplete() const override;
    void removeValue(const QString &key) override;

private:
    void store(const PreferenceEntries &entries) override;

    const QDir m_folder;
    PreferenceFile m_settings;
    std::map<QString, PreferenceFile> m_longValues; ///< by key
};

} // namespace perchly
