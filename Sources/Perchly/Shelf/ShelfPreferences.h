#pragma once

#include <QObject>
#include <QString>

namespace perchly {

class Preferences;

/// The preferences that the shelf's view is bound to, each with its default where nothing, or a
/// value of another type, is stored. Follows every change at once. Main thread only.
class ShelfPreferences : public QObject {
    Q_OBJECT
    Q_PROPERTY(double shelfScale READ shelfScale NOTIFY shelfScaleChanged FINAL)
    Q_PROPERTY(QString theme READ theme NOTIFY themeChanged FINAL)
    Q_PROPERTY(QString accent READ accent NOTIFY accentChanged FINAL)
    Q_PROPERTY(double opacity READ opacity NOTIFY opacityChanged FINAL)
    Q_PROPERTY(bool compact READ compact NOTIFY compactChanged FINAL)
    Q_PROPERTY(QString savedLeft READ savedLeft WRITE setSavedLeft NOTIFY savedLeftChanged FINAL)
    Q_PROPERTY(
        QString savedRight READ savedRight WRITE setSavedRight NOTIFY savedRightChanged FINAL)
    Q_PROPERTY(QString note READ note WRITE setNote NOTIFY noteChanged FINAL)
    Q_PROPERTY(
        int focusMinutes READ focusMinutes WRITE setFocusMinutes NOTIFY focusMinutesChanged FINAL)
    Q_PROPERTY(
        int breakMinutes READ breakMinutes WRITE setBreakMinutes NOTIFY breakMinutesChanged FINAL)
public:
    /// The preferences must outlive this object.
    explicit ShelfPreferences(Preferences &preferences, QObject *parent = nullptr);

    [[nodiscard]] double shelfScale() const; ///< default 1.0; always positive
    [[nodiscard]] QString theme() const;     ///< default "Midnight"
    [[nodiscard]] QString accent() const;    ///< default "Mint"
    [[nodiscard]] double opacity() const;    ///< default 1.0
    [[nodiscard]] bool compact() const;      ///< default false

    /// Titles of the pinned widgets; defaults "Clock" and "Focus timer".
    [[nodiscard]] QString savedLeft() const;
    void setSavedLeft(const QString &title);
    [[nodiscard]] QString savedRight() const;
    void setSavedRight(const QString &title);

    /// The quick note; default empty.
    [[nodiscard]] QString note() const;
    void setNote(const QString &note);

    /// The planned length of a focus session as it is stored; 25 where that is no whole number.
    [[nodiscard]] int focusMinutes() const;
    void setFocusMinutes(int minutes);
    /// The same for a break; 5 where that is no whole number.
    [[nodiscard]] int breakMinutes() const;
    void setBreakMinutes(int minutes);

Q_SIGNALS:
    void shelfScaleChanged();
    void themeChanged();
    void accentChanged();
    void opacityChanged();
    void compactChanged();
    void savedLeftChanged();
    void savedRightChanged();
    void noteChanged();
    void focusMinutesChanged();
    void breakMinutesChanged();

private:
    [[nodiscard]] int minutes(const QString &key, int absent) const;
    void announce(const QString &key);

    Preferences &m_preferences;
};

} // namespace perchly
