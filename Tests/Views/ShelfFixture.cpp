#include "ShelfFixture.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QGuiApplication>
#include <QMetaEnum>
#include <QQuickWindow>

#include <functional>

namespace perchly {

namespace {

void visit(QAccessibleInterface *thing, const std::function<void(QAccessibleInterface &)> &see) {
    if (thing == nullptr || thing->state().invisible) {
        return;
    }
    see(*thing);
    for (int child = 0; child < thing->childCount(); ++child) {
        visit(thing->child(child), see);
    }
}

/// The last accessible object in the item's window that matches.
QAccessibleInterface *last(QQuickItem *item,
                           const std::function<bool(QAccessibleInterface &)> &wanted) {
    QAccessibleInterface *found = nullptr;
    visit(QAccessible::queryAccessibleInterface(item->window()),
          [&](QAccessibleInterface &thing) { found = wanted(thing) ? &thing : found; });
    return found;
}

} // namespace

ShelfFixture::ShelfFixture(QObject *parent)
    : QObject(parent)
    , m_model(m_fakes.clock, m_fakes.preferences, m_fakes.alertSound)
    , m_preferences(m_fakes.preferences, m_fakes.displays, m_fakes.loginItem, m_shell)
    , m_library(m_fakes.preferences, m_fakes.catalog, m_fakes.openPanel)
    , m_productivity(m_fakes.hosts, m_library, m_model)
    , m_extras(m_fakes.hosts, m_library, m_productivity, m_shell)
    , m_hotKey(m_fakes.hotKeys, m_fakes.preferences, m_shell, m_productivity)
    , m_mixer(m_fakes.audio, m_fakes.clock) {
    m_fakes.motion.reduced = true;
    connect(&m_model, &ShelfModel::controlRequested, this,
            [this](const QString &word) { m_commands.append(word); });
    connect(&m_model, &ShelfModel::musicRequested, this,
            [this] { m_commands.append(QStringLiteral("open music")); });
}

void ShelfFixture::dock(const QString &edge) {
    const ShelfEdge parsed = shelfEdgeFromName(edge).value_or(ShelfEdge::Top);
    const bool top = parsed == ShelfEdge::Top;
    m_model.setDockEdge(parsed);
    m_model.setCompactWidth(top ? 290 : 34);
    m_model.setCompactHeight(top ? 34 : 120);
}

void ShelfFixture::prefer(const QString &key, const QVariant &value) {
    const bool isText = value.typeId() == QMetaType::QString;
    m_fakes.preferences.setValue(key, isText ? PreferenceValue(value.toString())
                                             : PreferenceValue(value.toDouble()));
}

QVariant ShelfFixture::stored(const QString &key) const {
    const auto value = m_fakes.preferences.value(key);
    return value ? std::visit([](const auto &held) { return QVariant(held); }, *value) : QVariant();
}

void ShelfFixture::setMedia(const QString &title, bool isBrowser, bool canSeek) {
    m_model.setMedia({.active = true,
                      .playing = true,
                      .title = title,
                      .artist = QStringLiteral("Debussy"),
                      .source = QStringLiteral("Firefox"),
                      .isBrowser = isBrowser,
                      .canSeek = canSeek});
}

void ShelfFixture::fill(const QStringList &widgets, const QStringList &applications) {
    QList<ShelfItem> items;
    for (const QString &title : widgets) {
        items.append(ShelfItem::forWidget(widgetFromTitle(title).value_or(Widget::Clock)));
    }
    for (const QString &name : applications) {
        items.append(ShelfItem::forApplication(QStringLiteral("/apps/") + name, name));
    }
    m_library.setItems(items);
}

bool ShelfFixture::install(const QStringList &names) {
    if (m_fakes.catalog.searches.empty()) {
        return false;
    }
    QList<FoundApplication> found;
    for (const QString &name : names) {
        found.append({QStringLiteral("/apps/") + name, name});
    }
    m_fakes.catalog.finish(found);
    return true;
}

void ShelfFixture::play(const QStringList &names) {
    m_fakes.audio.list->clear();
    for (const QString &name : names) {
        const AudioObject process = name.front().unicode();
        m_fakes.audio.applications.insert(process, {name, {}});
        m_fakes.audio.list->append({process, std::int32_t(process), true, {}});
    }
}

void ShelfFixture::advance(int seconds) {
    m_fakes.clock.advance(std::chrono::seconds(seconds));
}

QStringList ShelfFixture::takeOpened() {
    QStringList opened;
    for (const auto &[url, completion] : std::exchange(m_fakes.applications.asked, {})) {
        opened.append(url.toString(QUrl::FullyEncoded));
    }
    return opened;
}

QStringList ShelfFixture::accessibleWithin(QQuickItem *item) {
    QStringList found;
    const auto roles = QMetaEnum::fromType<QAccessible::Role>();
    visit(QAccessible::queryAccessibleInterface(item->window()), [&](QAccessibleInterface &thing) {
        const QString name = thing.text(QAccessible::Name);
        if (auto *object = qobject_cast<QQuickItem *>(thing.object()); object && !name.isEmpty()) {
            const QLatin1String role(roles.valueToKey(thing.role()));
            // Qt 6.4 does not put this into the accessible state, later versions do.
            const QLatin1String state(object->isEnabled() ? "" : " (disabled)");
            found.append(QStringLiteral("%1: %2%3").arg(role, name, state));
        }
    });
    return found;
}

bool ShelfFixture::describedAs(QQuickItem *item, const QString &description) {
    return last(item, [&](QAccessibleInterface &thing) {
               return thing.text(QAccessible::Description) == description;
           }) != nullptr;
}

bool ShelfFixture::pressAccessible(QQuickItem *within, const QString &name) {
    auto *found = last(within, [&](QAccessibleInterface &thing) {
        return thing.text(QAccessible::Name) == name && thing.actionInterface() != nullptr;
    });
    if (found != nullptr) {
        found->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
    return found != nullptr;
}

bool ShelfFixture::setAccessible(QQuickItem *within, const QString &name, double value) {
    auto *found = last(within, [&](QAccessibleInterface &thing) {
        return thing.text(QAccessible::Name) == name && thing.valueInterface() != nullptr;
    });
    if (found != nullptr) {
        found->valueInterface()->setCurrentValue(value);
    }
    return found != nullptr;
}

void ShelfFixture::repeatKey(QQuickItem *item, int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(item->window(), &press);
}

QStringList ShelfFixture::toolTips() {
    QStringList texts;
    for (const QWindow *window : QGuiApplication::topLevelWindows()) {
        if (window->isVisible() && window->type() == Qt::ToolTip) {
            texts.append(window->property("text").toString());
        }
    }
    return texts;
}

} // namespace perchly
