#include "ShelfPreferences.h"

#include "Displays.h"
#include "LoginItem.h"
#include "ShellActions.h"

#include <algorithm>
#include <array>
#include <limits>

namespace perchly {

namespace {

constexpr std::array otherKeys{
    keys::shelfTheme,       keys::shelfAccent,       keys::shelfOpacity,     keys::compactMode,
    keys::shelfEdge,        keys::openOnHover,       keys::hoverDelay,       keys::leftWidget,
    keys::rightWidget,      keys::quickNote,         keys::focusMinutes,     keys::breakMinutes,
    keys::announceFocus,    keys::announceShortcuts, keys::announceCaptures, keys::announceFailures,
    keys::announceMeetings, keys::openingDelay,      keys::overPanels};

QString edgeTitle(ShelfEdge edge) {
    QString title = shelfEdgeName(edge);
    title[0] = title.at(0).toUpper();
    return title;
}

} // namespace

ShelfPreferences::ShelfPreferences(Preferences &preferences, Displays &displays,
                                   LoginItem &loginItem, ShellActions &shell, QObject *parent)
    : QObject(parent)
    , m_stored(preferences)
    , m_displays(displays)
    , m_loginItem(loginItem)
    , m_shell(shell) {
    connect(&preferences, &Preferences::changed, this, [this](const QString &key) {
        if (key == keys::shelfScale) {
            Q_EMIT scaleChanged();
        } else if (key == keys::displayIndex || key == keys::displayConnector) {
            Q_EMIT displaysChanged();
        } else if (std::ranges::find(otherKeys, key) != otherKeys.end()) {
            Q_EMIT changed();
        }
    });
    connect(&displays, &Displays::changed, this, &ShelfPreferences::displaysChanged);
}

QStringList ShelfPreferences::themes() {
    return {QStringLiteral("Midnight"), QStringLiteral("Graphite"), QStringLiteral("Ocean")};
}

QStringList ShelfPreferences::accents() {
    return {QStringLiteral("Mint"), QStringLiteral("Blue"), QStringLiteral("Purple"),
            QStringLiteral("Orange")};
}

QStringList ShelfPreferences::edges() {
    QStringList titles;
    std::ranges::transform(allShelfEdges, std::back_inserter(titles), edgeTitle);
    return titles;
}

QStringList ShelfPreferences::displays() const {
    QStringList names;
    std::ranges::transform(m_displays.list(), std::back_inserter(names), &Display::name);
    return names;
}

int ShelfPreferences::display() const {
    const QList<Display> displays = m_displays.list();
    const QString connector = text(keys::displayConnector, "");
    const auto chosen = std::ranges::find_if(displays, [&connector](const Display &display) {
        return !connector.isEmpty() && display.connector == connector;
    });
    if (chosen != displays.cend()) {
        return int(std::distance(displays.cbegin(), chosen));
    }
    const auto last = std::max<qint64>(0, displays.size() - 1);
    return int(std::clamp<qint64>(wholeNumber(keys::displayIndex, 0), 0, last));
}

void ShelfPreferences::setDisplay(int index) {
    m_stored.setValues(
        {{keys::displayIndex, double(index)}, {keys::displayConnector, connectorOf(index)}});
    m_shell.resize();
}

QString ShelfPreferences::edge() const {
    return edgeTitle(position().edge);
}

void ShelfPreferences::setEdge(const QString &edge) {
    m_stored.setString(keys::shelfEdge, edge.toLower());
    m_shell.resize();
}

ShelfPosition ShelfPreferences::position() const {
    return {shelfEdgeFromName(text(keys::shelfEdge, "")).value_or(ShelfEdge::Top),
            number(keys::shelfEdgePosition, 0.5)};
}

void ShelfPreferences::dock(const ShelfPosition &position, qsizetype display) {
    m_stored.setValues({{keys::shelfEdge, shelfEdgeName(position.edge)},
                        {keys::shelfEdgePosition, position.position},
                        {keys::displayIndex, double(display)},
                        {keys::displayConnector, connectorOf(display)}});
    m_shell.resize();
}

void ShelfPreferences::setOverPanels(bool over) {
    m_stored.setBoolean(keys::overPanels, over);
    m_shell.resize();
}

double ShelfPreferences::scale() const {
    const double stored = number(keys::shelfScale, 1.0);
    return stored > 0 ? stored : 1.0; // a scale of 0 would show nothing
}

void ShelfPreferences::setLogin(bool login) {
    if (m_login == login) {
        return;
    }
    const LoginItem::Result result =
        login ? m_loginItem.registerProgram() : m_loginItem.unregisterProgram();
    const bool failed = result.outcome == LoginItem::Outcome::Failed;
    if (failed) {
        m_error = result.message;
    }
    m_login = failed ? m_loginItem.isEnabled() : login;
    Q_EMIT loginChanged();
}

void ShelfPreferences::resetPosition() {
    m_stored.setValues(
        {{keys::shelfEdge, shelfEdgeName(ShelfEdge::Top)}, {keys::shelfEdgePosition, 0.5}});
    m_shell.resize();
}

void ShelfPreferences::refresh() {
    m_login = m_loginItem.isEnabled();
    m_error = QString();
    Q_EMIT loginChanged();
}

bool ShelfPreferences::flag(const QString &key, bool absent) const {
    return m_stored.boolean(key).value_or(absent);
}

double ShelfPreferences::number(const QString &key, double absent) const {
    return m_stored.number(key).value_or(absent);
}

int ShelfPreferences::wholeNumber(const QString &key, int absent) const {
    constexpr qint64 max = std::numeric_limits<int>::max();
    return int(std::clamp(m_stored.wholeNumber(key).value_or(absent), -max, max));
}

QString ShelfPreferences::connectorOf(qsizetype display) const {
    return m_displays.list().value(display).connector;
}

QString ShelfPreferences::text(const QString &key, const char *absent) const {
    return m_stored.string(key).value_or(QString::fromLatin1(absent));
}

QString ShelfPreferences::choice(const QString &key, const QStringList &names) const {
    const QString stored = text(key, "");
    return names.contains(stored) ? stored : names.constFirst();
}

} // namespace perchly
