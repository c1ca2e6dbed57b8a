#pragma once

#include "FakeHosts.h"
#include "Productivity.h"
#include "RecordingShell.h"
#include "ShelfExtras.h"
#include "ShelfHotKey.h"
#include "ShelfLibrary.h"
#include "ShelfModel.h"
#include "ShelfPreferences.h"
#include "VolumeMixer.h"

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace perchly {

/// The stores for a view, with fake hosts, and the controls that tests need.
class ShelfFixture : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(perchly::ShelfModel *model READ model CONSTANT FINAL)
    Q_PROPERTY(perchly::ShelfPreferences *preferences READ preferences CONSTANT FINAL)
    Q_PROPERTY(perchly::ShelfLibrary *library READ library CONSTANT FINAL)
    Q_PROPERTY(perchly::Productivity *productivity READ productivity CONSTANT FINAL)
    Q_PROPERTY(perchly::ShelfExtras *extras READ extras CONSTANT FINAL)
    Q_PROPERTY(perchly::ShelfHotKey *hotKey READ hotKey CONSTANT FINAL)
    Q_PROPERTY(perchly::VolumeMixer *mixer READ mixer CONSTANT FINAL)
    Q_PROPERTY(perchly::ShellActions *shell READ shell CONSTANT FINAL)
    Q_PROPERTY(perchly::Motion *motion READ motion CONSTANT FINAL)
    Q_PROPERTY(perchly::Appearance *appearance READ appearance CONSTANT FINAL)
public:
    explicit ShelfFixture(QObject *parent = nullptr);

    ShelfModel *model() { return &m_model; }
    ShelfPreferences *preferences() { return &m_preferences; }
    ShelfLibrary *library() { return &m_library; }
    Productivity *productivity() { return &m_productivity; }
    ShelfExtras *extras() { return &m_extras; }
    ShelfHotKey *hotKey() { return &m_hotKey; }
    VolumeMixer *mixer() { return &m_mixer; }
    ShellActions *shell() { return &m_shell; }
    Motion *motion() { return &m_fakes.motion; }
    Appearance *appearance() { return m_fakes.hosts.appearance.get(); }

    /// Lays the collapsed shelf out for that edge, as the shell does.
    Q_INVOKABLE void dock(const QString &edge);
    Q_INVOKABLE void setExpanded(bool expanded) { m_model.setExpanded(expanded); }
    /// Stores a string or a number under a key.
    Q_INVOKABLE void prefer(const QString &key, const QVariant &value);
    /// The stored value of a key.
    Q_INVOKABLE QVariant stored(const QString &key) const;
    /// Firefox plays something by Debussy, as a web page (`isBrowser`) or as a player.
    Q_INVOKABLE void setMedia(const QString &title, bool isBrowser, bool canSeek);
    /// The commands sent to players since the last call.
    Q_INVOKABLE QStringList takeCommands() { return std::exchange(m_commands, {}); }
    /// Replaces the shelf's entries with the widgets of those titles, then applications with those
    /// names. An application's desktop entry is "/apps/" and its name.
    Q_INVOKABLE void fill(const QStringList &widgets, const QStringList &applications);
    /// Ends the view's search for applications with those in "/apps/"; false without a search.
    Q_INVOKABLE bool install(const QStringList &names);
    /// From now on the applications with those names play sound. Their initials must differ.
    Q_INVOKABLE void play(const QStringList &names);
    Q_INVOKABLE bool choosingWidget() const { return m_model.choosingWidget(); }
    Q_INVOKABLE void advance(int seconds);

    /// The paths and links opened since the last call; an application as its entry's file.
    Q_INVOKABLE QStringList takeOpened();
    /// The text on the clipboard.
    Q_INVOKABLE QString copied() const { return m_fakes.pasteboard.offered.text; }
    /// The calls to the shell since the last call.
    Q_INVOKABLE QStringList takeCalls() { return std::exchange(m_shell.calls, {}); }

    /// "Button: Search" or "Button: Pin (disabled)" for each accessible object in the item's
    /// window, in order.
    Q_INVOKABLE static QStringList accessibleWithin(QQuickItem *item);
    /// Whether an accessible object in the item's window has that description.
    Q_INVOKABLE static bool describedAs(QQuickItem *item, const QString &description);
    /// Presses the last accessible object with that name, like an assistive program; false without
    /// such an object.
    Q_INVOKABLE static bool pressAccessible(QQuickItem *within, const QString &name);
    /// Sets the value of the last accessible object with that name; false without such an object.
    Q_INVOKABLE static bool setAccessible(QQuickItem *within, const QString &name, double value);
    /// Sends a key repeat.
    Q_INVOKABLE static void repeatKey(QQuickItem *item, int key);
    /// The texts of all tooltips on the screen.
    Q_INVOKABLE static QStringList toolTips();

private:
    FakeHosts m_fakes;
    RecordingShell m_shell;
    ShelfModel m_model;
    ShelfPreferences m_preferences;
    ShelfLibrary m_library;
    Productivity m_productivity;
    ShelfExtras m_extras;
    ShelfHotKey m_hotKey;
    VolumeMixer m_mixer;
    QStringList m_commands;
};

} // namespace perchly
