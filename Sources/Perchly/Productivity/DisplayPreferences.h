#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

namespace perchly {

class Displays;
class LoginItem;
class Preferences;
class ShellActions;

/// What a person can set about how the shelf looks and behaves. Each value is the stored one, or
/// its default where nothing, or nothing that fits, is stored; setting it stores it at once, and
/// moves the shelf where it must. Main thread only.
class DisplayPreferences : public QObject {
    Q_OBJECT
    Q_PROPERTY(QList<QString> themes READ themes CONSTANT FINAL)
    Q_PROPERTY(QList<QString> accents READ accents CONSTANT FINAL)
    Q_PROPERTY(QList<QString> edges READ edges CONSTANT FINAL)
    Q_PROPERTY(QList<QString> displays READ displays NOTIFY displaysChanged FINAL)
    Q_PROPERTY(QString theme READ theme WRITE setTheme NOTIFY themeChanged FINAL)
    Q_PROPERTY(QString accent READ accent WRITE setAccent NOTIFY accentChanged FINAL)
    Q_PROPERTY(double opacity READ opacity WRITE setOpacity NOTIFY opacityChanged FINAL)
    Q_PROPERTY(bool compact READ compact WRITE setCompact NOTIFY compactChanged FINAL)
    Q_PROPERTY(int display READ display WRITE setDisplay NOTIFY displayChanged FINAL)
    Q_PROPERTY(QString edge READ edge WRITE setEdge NOTIFY edgeChanged FINAL)
    Q_PROPERTY(double scale READ scale WRITE setScale NOTIFY scaleChanged FINAL)
    Q_PROPERTY(
        bool openOnHover READ openOnHover WRITE setOpenOnHover NOTIFY openOnHoverChanged FINAL)
    Q_PROPERTY(double hoverDelay READ hoverDelay WRITE setHoverDelay NOTIFY hoverDelayChanged FINAL)
    Q_PROPERTY(bool login READ login WRITE setLogin NOTIFY loginChanged FINAL)
    Q_PROPERTY(QString error READ error NOTIFY errorChanged FINAL)
public:
    /// All of these must outlive this object.
    DisplayPreferences(Preferences &preferences, Displays &displays, LoginItem &loginItem,
                       ShellActions &shell, QObject *parent = nullptr);

    [[nodiscard]] static QStringList themes();
    [[nodiscard]] static QStringList accents();
    [[nodiscard]] static QStringList edges();
    /// The names of the attached displays, in the system's order.
    [[nodiscard]] QStringList displays() const;

    [[nodiscard]] QString theme() const;
    void setTheme(const QString &theme);
    [[nodiscard]] QString accent() const;
    void setAccent(const QString &accent);
    [[nodiscard]] double opacity() const;
    void setOpacity(double opacity);
    [[nodiscard]] bool compact() const;
    void setCompact(bool compact);
    /// Index of the display that the shelf is on: the last one while the chosen one is not
    /// attached.
    [[nodiscard]] int display() const;
    void setDisplay(int index);
    /// One of `edges`.
    [[nodiscard]] QString edge() const;
    void setEdge(const QString &edge);
    [[nodiscard]] double scale() const;
    void setScale(double scale);
    [[nodiscard]] bool openOnHover() const;
    void setOpenOnHover(bool open);
    /// Seconds.
    [[nodiscard]] double hoverDelay() const;
    void setHoverDelay(double seconds);

    /// Whether the program is started at login. Setting it asks the desktop; where that fails,
    /// `error` says why and the value stays what it really is.
    [[nodiscard]] bool login() const { return m_login; }
    void setLogin(bool login);
    /// Why the login item could not be changed; null until that happens.
    [[nodiscard]] QString error() const { return m_error; }

    /// Moves the shelf to the middle of the top edge.
    Q_INVOKABLE void resetPosition();
    /// Asks the desktop about the login item again and forgets the error. To be called each time
    /// that a person comes to see this.
    Q_INVOKABLE void refresh();

Q_SIGNALS:
    void displaysChanged();
    void themeChanged();
    void accentChanged();
    void opacityChanged();
    void compactChanged();
    void displayChanged();
    void edgeChanged();
    void scaleChanged();
    void openOnHoverChanged();
    void hoverDelayChanged();
    void loginChanged();
    void errorChanged();

private:
    void announce(const QString &key);
    void setError(const QString &error);

    Preferences &m_preferences;
    Displays &m_displays;
    LoginItem &m_loginItem;
    ShellActions &m_shell;
    bool m_login = false;
    QString m_error;
};

} // namespace perchly
