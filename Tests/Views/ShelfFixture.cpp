#include "ShelfFixture.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMetaEnum>
#include <QMimeData>
#include <QQuickWindow>

#include <algorithm>
#include <functional>
#include <iterator>

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

/// The last accessible thing in the item's window that is wanted.
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
    , m_extras(m_fakes.hosts, m_library, m_productivity, m_shell) {
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
    switch (value.typeId()) {
    case QMetaType::Bool:
        m_fakes.preferences.setValue(key, value.toBool());
        break;
    case QMetaType::QString:
        m_fakes.preferences.setValue(key, value.toString());
        break;
    default:
        m_fakes.preferences.setValue(key, value.toDouble());
    }
}

void ShelfFixture::reduceMotion(bool reduce) {
    m_fakes.motion.reduced = reduce;
    Q_EMIT m_fakes.motion.changed();
}

void ShelfFixture::setMedia(const QVariantMap &fields) {
    const auto set = [&](const char *name, auto setter) {
        if (const auto field = fields.find(QLatin1StringView(name)); field != fields.end()) {
            setter(*field);
        }
    };
    Media media = m_model.media();
    set("active", [&media](const QVariant &value) { media.active = value.toBool(); });
    set("playing", [&media](const QVariant &value) { media.playing = value.toBool(); });
    set("title", [&media](const QVariant &value) { media.title = value.toString(); });
    set("artist", [&media](const QVariant &value) { media.artist = value.toString(); });
    set("source", [&media](const QVariant &value) { media.source = value.toString(); });
    set("browser", [&media](const QVariant &value) { media.isBrowser = value.toBool(); });
    set("canSeek", [&media](const QVariant &value) { media.canSeek = value.toBool(); });
    m_model.setMedia(media);
    set("controlling", [this](const QVariant &value) { m_model.setControlling(value.toBool()); });
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

QStringList ShelfFixture::identifiers(const QList<ShelfItem> &items) {
    QStringList found;
    std::ranges::transform(items, std::back_inserter(found), &ShelfItem::id);
    return found;
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

void ShelfFixture::attachDisplays(const QStringList &names) {
    m_fakes.displays.displays.clear();
    for (const QString &name : names) {
        m_fakes.displays.displays.append(Display{.name = name, .frame = {}, .visibleFrame = {}});
    }
    Q_EMIT m_fakes.displays.changed();
}

QVariant ShelfFixture::stored(const QString &key) const {
    const auto value = m_fakes.preferences.value(key);
    return value ? std::visit([](const auto &held) { return QVariant(held); }, *value) : QVariant();
}

void ShelfFixture::advance(int seconds) {
    m_fakes.clock.advance(std::chrono::seconds(seconds));
}

QStringList ShelfFixture::takeCalls() {
    return std::exchange(m_shell.calls, {});
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
    visit(QAccessible::queryAccessibleInterface(item->window()), [&](QAccessibleInterface &thing) {
        const QString name = thing.text(QAccessible::Name);
        if (name.isEmpty() || thing.role() == QAccessible::Window) {
            return;
        }
        const QString role =
            QString::fromLatin1(QMetaEnum::fromType<QAccessible::Role>().valueToKey(thing.role()));
        found.append(role + QStringLiteral(": ") + name);
    });
    return found;
}

bool ShelfFixture::describedAs(QQuickItem *item, const QString &description) {
    return last(item, [&](QAccessibleInterface &thing) {
               return thing.text(QAccessible::Description) == description;
           }) != nullptr;
}

bool ShelfFixture::pressAccessible(QQuickItem *within, const QString &name) {
    auto *found = last(
        within, [&](QAccessibleInterface &thing) { return thing.text(QAccessible::Name) == name; });
    if (found == nullptr || found->actionInterface() == nullptr) {
        return false;
    }
    found->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    return true;
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

bool ShelfFixture::drop(QQuickItem *item, double x, double y, const QList<QUrl> &urls) {
    QMimeData data;
    data.setUrls(urls);
    const QPointF at = item->mapToScene(QPointF(x, y));
    QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(item->window(), &enter);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(item->window(), &drop);
    return enter.isAccepted() && drop.isAccepted();
}

QStringList ShelfFixture::toolTips() {
    QStringList texts;
    for (const QWindow *window : QGuiApplication::topLevelWindows()) {
        if (window->isVisible() && window->type() == Qt::ToolTip) {
            const bool inside = window->screen()->geometry().contains(window->geometry());
            texts.append(inside ? window->property("text").toString()
                                : QStringLiteral("outside the display"));
        }
    }
    return texts;
}

} // namespace perchly
