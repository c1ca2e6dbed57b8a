#include "ShelfPreferences.h"

#include "PreferenceKeys.h"
#include "Preferences.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace perchly {

ShelfPreferences::ShelfPreferences(Preferences &preferences, QObject *parent)
    : QObject(parent)
    , m_preferences(preferences) {
    connect(&preferences, &Preferences::changed, this, &ShelfPreferences::announce);
}

double ShelfPreferences::shelfScale() const {
    const double stored = m_preferences.number(keys::shelfScale).value_or(1.0);
    return stored > 0 ? stored : 1.0; // nothing can be shown at no size
}

QString ShelfPreferences::theme() const {
    return m_preferences.string(keys::shelfTheme).value_or(QStringLiteral("Midnight"));
}

QString ShelfPreferences::accent() const {
    return m_preferences.string(keys::shelfAccent).value_or(QStringLiteral("Mint"));
}

double ShelfPreferences::opacity() const {
    return m_preferences.number(keys::shelfOpacity).value_or(1.0);
}

bool ShelfPreferences::compact() const {
    return m_preferences.boolean(keys::compactMode).value_or(false);
}

QString ShelfPreferences::savedLeft() const {
    return m_preferences.string(keys::leftWidget).value_or(QStringLiteral("Clock"));
}

void ShelfPreferences::setSavedLeft(const QString &title) {
    m_preferences.setString(keys::leftWidget, title);
}

QString ShelfPreferences::savedRight() const {
    return m_preferences.string(keys::rightWidget).value_or(QStringLiteral("Focus timer"));
}

void ShelfPreferences::setSavedRight(const QString &title) {
    m_preferences.setString(keys::rightWidget, title);
}

QString ShelfPreferences::note() const {
    return m_preferences.string(keys::quickNote).value_or(QString());
}

void ShelfPreferences::setNote(const QString &note) {
    m_preferences.setString(keys::quickNote, note);
}

int ShelfPreferences::minutes(const QString &key, int absent) const {
    constexpr qint64 most = std::numeric_limits<int>::max();
    return int(std::clamp(m_preferences.wholeNumber(key).value_or(absent), -most, most));
}

int ShelfPreferences::focusMinutes() const {
    return minutes(keys::focusMinutes, 25);
}

void ShelfPreferences::setFocusMinutes(int minutes) {
    m_preferences.setNumber(keys::focusMinutes, minutes);
}

int ShelfPreferences::breakMinutes() const {
    return minutes(keys::breakMinutes, 5);
}

void ShelfPreferences::setBreakMinutes(int minutes) {
    m_preferences.setNumber(keys::breakMinutes, minutes);
}

void ShelfPreferences::announce(const QString &key) {
    using Signal = void (ShelfPreferences::*)();
    static constexpr std::pair<QLatin1StringView, Signal> signalOfKey[] = {
        {keys::shelfScale, &ShelfPreferences::shelfScaleChanged},
        {keys::shelfTheme, &ShelfPreferences::themeChanged},
        {keys::shelfAccent, &ShelfPreferences::accentChanged},
        {keys::shelfOpacity, &ShelfPreferences::opacityChanged},
        {keys::compactMode, &ShelfPreferences::compactChanged},
        {keys::leftWidget, &ShelfPreferences::savedLeftChanged},
        {keys::rightWidget, &ShelfPreferences::savedRightChanged},
        {keys::quickNote, &ShelfPreferences::noteChanged},
        {keys::focusMinutes, &ShelfPreferences::focusMinutesChanged},
        {keys::breakMinutes, &ShelfPreferences::breakMinutesChanged},
    };
    for (const auto &[candidate, changed] : signalOfKey) {
        if (candidate == key) {
            Q_EMIT(this->*changed)();
        }
    }
}

} // namespace perchly
