#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>

#include <optional>
#include <utility>
#include <variant>

namespace perchly {

/// The value of one key: a boolean, a number, a string, or data (a stored document's UTF-8 JSON).
using PreferenceValue = std::variant<bool, double, QString, QByteArray>;
using PreferenceEntries = QList<std::pair<QString, PreferenceValue>>;

/// The user's preferences: string keys with typed values. A set is durable when it returns: the
/// program may be killed right after it. Readers check the stored type and never convert, so that
/// both an absent value and one of a wrong type read as the reader's default. Main thread only.
class Preferences : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Max size of a string (as UTF-8) or of data: small enough to write on the main thread.
    static constexpr qsizetype maxValueBytes = 512 * 1024;

    [[nodiscard]] virtual std::optional<PreferenceValue> value(const QString &key) const = 0;

    /// Whether every value that the user has ever stored can be here: no damaged file was set
    /// aside.
    [[nodiscard]] virtual bool isComplete() const { return true; }

    /// Stores the values, all or, if the program is killed meanwhile, none; then announces them in
    /// order. (Those of keys::longValues are stored one by one.) A failed write leaves the stored
    /// values intact on disk; the new ones hold for the run and are written again on the next set
    /// and at the end.
    ///
    /// Returns false and stores nothing if checkSize() fails for one of them.
    bool setValues(const PreferenceEntries &entries);

    /// Whether the value has at most maxValueBytes, or is not larger than the stored one; otherwise
    /// emits tooLarge().
    [[nodiscard]] bool checkSize(const QString &key, const PreferenceValue &newValue);

    /// Removes the key and announces that, if it was stored.
    virtual void removeValue(const QString &key) = 0;

    [[nodiscard]] std::optional<bool> boolean(const QString &key) const { return read<bool>(key); }
    [[nodiscard]] std::optional<double> number(const QString &key) const {
        return read<double>(key);
    }
    /// A stored whole number that fits into 53 bits.
    [[nodiscard]] std::optional<qint64> wholeNumber(const QString &key) const;
    [[nodiscard]] std::optional<QString> string(const QString &key) const {
        return read<QString>(key);
    }
    [[nodiscard]] std::optional<QByteArray> data(const QString &key) const {
        return read<QByteArray>(key);
    }

    bool setValue(const QString &key, const PreferenceValue &value) {
        return setValues({{key, value}});
    }
    void setBoolean(const QString &key, bool value) { setValue(key, value); }
    void setNumber(const QString &key, double value) { setValue(key, value); }
    bool setString(const QString &key, const QString &value) { return setValue(key, value); }
    bool setData(const QString &key, const QByteArray &value) { return setValue(key, value); }

Q_SIGNALS:
    /// The key was set, possibly to the value that it had, or removed.
    void changed(const QString &key);

    /// A write failed, for the first time since one succeeded.
    void failed(const QString &reason);

    /// A value is too large to store.
    void tooLarge();

protected:
    /// Stores and announces values whose sizes have been checked.
    virtual void store(const PreferenceEntries &entries) = 0;

private:
    template <class T>
    [[nodiscard]] std::optional<T> read(const QString &key) const {
        const auto stored = value(key);
        const T *const held = stored ? std::get_if<T>(&*stored) : nullptr;
        return held != nullptr ? std::optional(*held) : std::nullopt;
    }
};

} // namespace perchly
