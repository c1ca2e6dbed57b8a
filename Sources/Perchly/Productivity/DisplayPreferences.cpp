#include "DisplayPreferences.h"

#include "Displays.h"
#include "LoginItem.h"
#include "PreferenceKeys.h"
#include "Preferences.h"
#include "ShelfEdge.h"
#include "ShellActions.h"

#include <algorithm>
#include <utility>

namespace perchly {

namespace {

/// The stored name if it is one of those that can be chosen, else the first of them.
QString chosen(const Preferences &preferences, const QString &key, const QStringList &names) {
    const auto stored = preferences.string(key);
    return stored && names.contains(*stored) ? *stored : names.constFirst();
}

QString edgeTitle(ShelfEdge edge) {
    QString title = shelfEdgeName(edge);
    title[0] = title.at(0).toUpper();
    return title;
}

} // namespace

DisplayPreferences::DisplayPreferences(Preferences &preferences, Displays &displays,
                                       LoginItem &loginItem, ShellActions &shell, QObject *parent)
    : QObject(parent)
    , m_preferences(preferences)
    , m_displays(displays)
    , m_loginItem(loginItem)
    , m_shell(shell)
    , m_login(loginItem.isEnabled()) {
    connect(&preferences, &Preferences::changed, this, &DisplayPreferences::announce);
    connect(&displays, &Displays::changed, this, [this] {
        Q_EMIT displaysChanged();
        Q_EMIT displayChanged();
    });
}

QStringList DisplayPreferences::themes() {
    return {QStringLiteral("Midnight"), QStringLiteral("Graphite"), QStringLiteral("Ocean")};
}

QStringList DisplayPreferences::accents() {
    return {QStringLiteral("Mint"), QStringLiteral("Blue"), QStringLiteral("Purple"),
            QStringLiteral("Orange")};
}

QStringList DisplayPreferences::edges() {
    QStringList titles;
    std::ranges::transform(allShelfEdges, std::back_inserter(titles), edgeTitle);
    return titles;
}

QStringList DisplayPreferences::displays() const {
    QStringList names;
    std::ranges::transform(m_displays.list(), std::back_inserter(names), &Display::name);
    return names;
}

QString DisplayPreferences::theme() const {
    return chosen(m_preferences, keys::shelfTheme, themes());
}

void DisplayPreferences::setTheme(const QString &theme) {
    m_preferences.setString(keys::shelfTheme, theme);
}

QString DisplayPreferences::accent() const {
    return chosen(m_preferences, keys::shelfAccent, accents());
}

void DisplayPreferences::setAccent(const QString &accent) {
    m_preferences.setString(keys::shelfAccent, accent);
}

double DisplayPreferences::opacity() const {
    return m_preferences.number(keys::shelfOpacity).value_or(1.0);
}

void DisplayPreferences::setOpacity(double opacity) {
    m_preferences.setNumber(keys::shelfOpacity, opacity);
}

bool DisplayPreferences::compact() const {
    return m_preferences.boolean(keys::compactMode).value_or(false);
}

void DisplayPreferences::setCompact(bool compact) {
    m_preferences.setBoolean(keys::compactMode, compact);
}

int DisplayPreferences::display() const {
    const auto last = std::max<qint64>(0, m_displays.list().size() - 1);
    const qint64 stored = m_preferences.wholeNumber(keys::displayIndex).value_or(0);
    return int(std::clamp<qint64>(stored, 0, last));
}

void DisplayPreferences::setDisplay(int index) {
    m_preferences.setNumber(keys::displayIndex, index);
    m_shell.resize();
}

QString DisplayPreferences::edge() const {
    const QString stored = m_preferences.string(keys::shelfEdge).value_or(QString());
    return edgeTitle(shelfEdgeFromName(stored).value_or(ShelfEdge::Top));
}

void DisplayPreferences::setEdge(const QString &edge) {
    m_preferences.setString(keys::shelfEdge, edge.toLower());
    m_shell.resize();
}

double DisplayPreferences::scale() const {
    return m_preferences.number(keys::shelfScale).value_or(1.0);
}

void DisplayPreferences::setScale(double scale) {
    m_preferences.setNumber(keys::shelfScale, scale); // which the shell itself follows
}

bool DisplayPreferences::openOnHover() const {
    return m_preferences.boolean(keys::openOnHover).value_or(true);
}

void DisplayPreferences::setOpenOnHover(bool open) {
    m_preferences.setBoolean(keys::openOnHover, open);
}

double DisplayPreferences::hoverDelay() const {
    return m_preferences.number(keys::hoverDelay).value_or(0.35);
}

void DisplayPreferences::setHoverDelay(double seconds) {
    m_preferences.setNumber(keys::hoverDelay, seconds);
}

void DisplayPreferences::setLogin(bool login) {
    if (m_login == login) {
        return;
    }
    const LoginItem::Result result =
        login ? m_loginItem.registerProgram() : m_loginItem.unregisterProgram();
    const bool failed = result.outcome == LoginItem::Outcome::Failed;
    if (failed) {
        setError(result.message);
    }
    m_login = failed ? m_loginItem.isEnabled() : login;
    Q_EMIT loginChanged();
}

void DisplayPreferences::resetPosition() {
    m_preferences.setValues(
        {{keys::shelfEdge, shelfEdgeName(ShelfEdge::Top)}, {keys::shelfEdgePosition, 0.5}});
    m_shell.resize();
}

void DisplayPreferences::refresh() {
    m_login = m_loginItem.isEnabled();
    Q_EMIT loginChanged();
    setError({});
}

void DisplayPreferences::setError(const QString &error) {
    m_error = error;
    Q_EMIT errorChanged();
}

void DisplayPreferences::announce(const QString &key) {
    using Signal = void (DisplayPreferences::*)();
    static constexpr std::pair<QLatin1StringView, Signal> signalOfKey[] = {
        {keys::shelfTheme, &DisplayPreferences::themeChanged},
        {keys::shelfAccent, &DisplayPreferences::accentChanged},
        {keys::shelfOpacity, &DisplayPreferences::opacityChanged},
        {keys::compactMode, &DisplayPreferences::compactChanged},
        {keys::displayIndex, &DisplayPreferences::displayChanged},
        {keys::shelfEdge, &DisplayPreferences::edgeChanged},
        {keys::shelfScale, &DisplayPreferences::scaleChanged},
        {keys::openOnHover, &DisplayPreferences::openOnHoverChanged},
        {keys::hoverDelay, &DisplayPreferences::hoverDelayChanged},
    };
    for (const auto &[candidate, changed] : signalOfKey) {
        if (candidate == key) {
            Q_EMIT(this->*changed)();
        }
    }
}

} // namespace perchly
