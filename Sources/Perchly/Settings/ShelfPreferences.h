#pragma once

#include "KeyPress.h"

#include "PreferenceKeys.h"
#include "Preferences.h"
#include "ShelfPosition.h"

#include <QObject>
#include <QString>
#include <QStringList>

namespace perchly {

class Displays;
class LoginItem;
class ShellActions;

/// The user's settings of the shelf. Each value is the stored one, or a default if no valid value
/// is stored; setting it stores it at once and moves the shelf if needed. Main thread only.
class ShelfPreferences : public QObject {
    Q_OBJECT
    Q_PROPERTY(QList<QString> themes READ themes CONSTANT FINAL)
    Q_PROPERTY(QList<QString> accents READ accents CONSTANT FINAL)
    Q_PROPERTY(QList<QString> edges READ edges CONSTANT FINAL)
    Q_PROPERTY(QString launchKeys READ launchKeys CONSTANT FINAL)
    Q_PROPERTY(QList<QString> displays READ displays NOTIFY displaysChanged FINAL)
    Q_PROPERTY(QString theme READ theme WRITE setTheme NOTIFY changed FINAL)
    Q_PROPERTY(QString accent READ accent WRITE setAccent NOTIFY changed FINAL)
    Q_PROPERTY(double opacity READ opacity WRITE setOpacity NOTIFY changed FINAL)
    Q_PROPERTY(bool compact READ compact WRITE setCompact NOTIFY changed FINAL)
    Q_PROPERTY(int display READ display WRITE setDisplay NOTIFY displaysChanged FINAL)
    Q_PROPERTY(QString edge READ edge WRITE setEdge NOTIFY changed FINAL)
    Q_PROPERTY(double scale READ scale WRITE setScale NOTIFY scaleChanged FINAL)
    Q_PROPERTY(bool openOnHover READ openOnHover WRITE setOpenOnHover NOTIFY changed FINAL)
    Q_PROPERTY(double openingDelay READ openingDelay WRITE setOpeningDelay NOTIFY changed FINAL)
    Q_PROPERTY(bool overPanels READ overPanels WRITE setOverPanels NOTIFY changed FINAL)
    Q_PROPERTY(double hoverDelay READ hoverDelay WRITE setHoverDelay NOTIFY changed FINAL)
    Q_PROPERTY(QString savedLeft READ savedLeft WRITE setSavedLeft NOTIFY changed FINAL)
    Q_PROPERTY(QString savedRight READ savedRight WRITE setSavedRight NOTIFY changed FINAL)
    Q_PROPERTY(QString note READ note WRITE setNote NOTIFY changed FINAL)
    Q_PROPERTY(int focusMinutes READ focusMinutes WRITE setFocusMinutes NOTIFY changed FINAL)
    Q_PROPERTY(int breakMinutes READ breakMinutes WRITE setBreakMinutes NOTIFY changed FINAL)
    Q_PROPERTY(bool announceFocus READ announcesFocus WRITE setAnnounceFocus NOTIFY changed FINAL)
    Q_PROPERTY(bool announceShortcuts READ announcesShortcuts WRITE setAnnounceShortcuts NOTIFY
                   changed FINAL)
    Q_PROPERTY(
        bool announceCaptures READ announcesCaptures WRITE setAnnounceCaptures NOTIFY changed FINAL)
    Q_PROPERTY(
        bool announceFailures READ announcesFailures WRITE setAnnounceFailures NOTIFY changed FINAL)
    Q_PROPERTY(
        bool announceMeetings READ announcesMeetings WRITE setAnnounceMeetings NOTIFY changed FINAL)
    Q_PROPERTY(bool login READ login WRITE setLogin NOTIFY loginChanged FINAL)
    Q_PROPERTY(QString error READ error NOTIFY loginChanged FINAL)
public:
    /// The arguments must outlive this object.
    ShelfPreferences(Preferences &preferences, Displays &displays, LoginItem &loginItem,
                     ShellActions &shell, QObject *parent = nullptr);

    /// The nine chords that launch an entry, as users see them: "Ctrl+1–9".
    [[nodiscard]] static QString launchKeys() {
        return chordText(QKeyCombination(Qt::CTRL, Qt::Key_1)) + QStringLiteral("–9");
    }

    [[nodiscard]] static QStringList themes();
    [[nodiscard]] static QStringList accents();
    [[nodiscard]] static QStringList edges();
    /// The names of the attached displays, in the system's order.
    [[nodiscard]] QStringList displays() const;

    [[nodiscard]] QString theme() const { return choice(keys::shelfTheme, themes()); }
    void setTheme(const QString &theme) { m_stored.setString(keys::shelfTheme, theme); }
    [[nodiscard]] QString accent() const { return choice(keys::shelfAccent, accents()); }
    void setAccent(const QString &accent) { m_stored.setString(keys::shelfAccent, accent); }
    [[nodiscard]] double opacity() const { return number(keys::shelfOpacity, 1.0); }
    void setOpacity(double opacity) { m_stored.setNumber(keys::shelfOpacity, opacity); }
    [[nodiscard]] bool compact() const { return flag(keys::compactMode, false); }
    void setCompact(bool compact) { m_stored.setBoolean(keys::compactMode, compact); }
    /// Index of the shelf's display: the one at the stored connector, else with the stored index,
    /// else the last one.
    [[nodiscard]] int display() const;
    void setDisplay(int index);
    /// One of `edges`.
    [[nodiscard]] QString edge() const;
    void setEdge(const QString &edge);
    [[nodiscard]] ShelfPosition position() const;
    /// Puts the shelf at that position on the display with that index.
    void dock(const ShelfPosition &position, qsizetype display);
    /// Always positive.
    [[nodiscard]] double scale() const;
    void setScale(double scale) { m_stored.setNumber(keys::shelfScale, scale); }
    [[nodiscard]] bool openOnHover() const { return flag(keys::openOnHover, true); }
    void setOpenOnHover(bool open) { m_stored.setBoolean(keys::openOnHover, open); }
    /// Whether the shelf covers the desktop's panels at its edge.
    [[nodiscard]] bool overPanels() const { return flag(keys::overPanels, false); }
    void setOverPanels(bool over);
    /// Seconds until the shelf opens under the pointer.
    [[nodiscard]] double openingDelay() const { return number(keys::openingDelay, 0.0); }
    void setOpeningDelay(double seconds) { m_stored.setNumber(keys::openingDelay, seconds); }
    /// Seconds.
    [[nodiscard]] double hoverDelay() const { return number(keys::hoverDelay, 0.35); }
    void setHoverDelay(double seconds) { m_stored.setNumber(keys::hoverDelay, seconds); }

    /// Titles of the pinned widgets.
    [[nodiscard]] QString savedLeft() const { return text(keys::leftWidget, "Clock"); }
    void setSavedLeft(const QString &title) { m_stored.setString(keys::leftWidget, title); }
    [[nodiscard]] QString savedRight() const { return text(keys::rightWidget, "Focus timer"); }
    void setSavedRight(const QString &title) { m_stored.setString(keys::rightWidget, title); }
    [[nodiscard]] QString note() const { return text(keys::quickNote, ""); }
    void setNote(const QString &note) { m_stored.setString(keys::quickNote, note); }
    /// The stored lengths of a focus session and a break.
    [[nodiscard]] int focusMinutes() const {
        return wholeNumber(keys::focusMinutes, keys::defaultFocusMinutes);
    }
    void setFocusMinutes(int minutes) { m_stored.setNumber(keys::focusMinutes, minutes); }
    [[nodiscard]] int breakMinutes() const {
        return wholeNumber(keys::breakMinutes, keys::defaultBreakMinutes);
    }
    void setBreakMinutes(int minutes) { m_stored.setNumber(keys::breakMinutes, minutes); }

    /// Whether desktop notifications tell of these.
    [[nodiscard]] bool announcesFocus() const { return flag(keys::announceFocus, true); }
    void setAnnounceFocus(bool announce) { m_stored.setBoolean(keys::announceFocus, announce); }
    [[nodiscard]] bool announcesShortcuts() const { return flag(keys::announceShortcuts, true); }
    void setAnnounceShortcuts(bool announce) {
        m_stored.setBoolean(keys::announceShortcuts, announce);
    }
    [[nodiscard]] bool announcesCaptures() const { return flag(keys::announceCaptures, true); }
    void setAnnounceCaptures(bool announce) {
        m_stored.setBoolean(keys::announceCaptures, announce);
    }
    [[nodiscard]] bool announcesFailures() const { return flag(keys::announceFailures, true); }
    void setAnnounceFailures(bool announce) {
        m_stored.setBoolean(keys::announceFailures, announce);
    }
    [[nodiscard]] bool announcesMeetings() const { return flag(keys::announceMeetings, true); }
    void setAnnounceMeetings(bool announce) {
        m_stored.setBoolean(keys::announceMeetings, announce);
    }

    /// Whether the program starts at login, as of the last refresh(). Setting it asks the desktop;
    /// on failure `error` says why and the value does not change.
    [[nodiscard]] bool login() const { return m_login; }
    void setLogin(bool login);
    /// Why the login item could not be changed; null until that happens.
    [[nodiscard]] QString error() const { return m_error; }

    /// Moves the shelf to the middle of the top edge.
    Q_INVOKABLE void resetPosition();
    /// Reads the login item again and clears the error. Call it each time the settings are shown.
    Q_INVOKABLE void refresh();

Q_SIGNALS:
    /// A preference without a signal of its own has changed.
    void changed();
    /// The displays or the chosen display have changed.
    void displaysChanged();
    void scaleChanged();
    void loginChanged();

private:
    [[nodiscard]] bool flag(const QString &key, bool absent) const;
    [[nodiscard]] double number(const QString &key, double absent) const;
    [[nodiscard]] int wholeNumber(const QString &key, int absent) const;
    [[nodiscard]] QString text(const QString &key, const char *absent) const;
    [[nodiscard]] QString connectorOf(qsizetype display) const;
    /// The stored name if `names` contains it, else the first of `names`.
    [[nodiscard]] QString choice(const QString &key, const QStringList &names) const;

    Preferences &m_stored;
    Displays &m_displays;
    LoginItem &m_loginItem;
    ShellActions &m_shell;
    bool m_login = false;
    QString m_error;
};

} // namespace perchly
