#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>

#include <optional>
#include <utility>
#include <variant>

namespace perchly {

/// What one key can hold: a boolean, a number, a string, or data (a stored document's UTF-8 JSON).
using PreferenceValue = std::variant<bool, double, QString, QByteArray>;
using PreferenceEntries = QList<std::pair<QString, PreferenceValue>>;

/// The user's preferences: string keys with typed values. A set is durable when it returns: the
/// program may be killed right after it. Readers check the stored type and never convert, so that
/// an absent value and one of the wrong type both read as the reader's default. Main thread only.
class Preferences : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Max size of a string (as UTF-8) or of data: small enough to be written on the main thread.
    static constexpr qsizetype maxValueBytes = 512 * 1024;

    [[nodiscard]] virtual std::optional<PreferenceValue> value(const QString &key) const = 0;

    /// Stores the values, all of them or, when the program is killed meanwhile, none; then
    /// announces them in order. (Those of keys::longValues are stored one by one.) A write that
    /// fails leaves the stored values intact on disk; the new ones hold for the run and are tried
    /// again with the next set and at the end.
    ///
    /// Returns false and stores nothing if checkSize() fails for one of them.
    bool setValues(const PreferenceEntries &entries);

    /// Whether the value has at most maxValueBytes, or at least is not larger than the stored one;
    /// emits tooLarge() if not.
    [[nodiscard]] bool checkSize(const QString &key, const PreferenceValue &newValue);

    /// Forgets the key and announces it, if it was there.
    virtual void removeValue(const QString &key) = 0;

    [[nodiscard]] std::optional<bool> boolean(const QString &key) const { return read<bool>(key); }
    [[nodiscard]] std::optional<double> number(const QString &key) const {
        return read<double>(key);
    }
    /// A stored number without a fraction that fits into 53 bits.
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
    /// The key was set (possibly to the value that it had) or removed.
    void changed(const QString &key);

    /// A write failed, for that reason, for the first time since one succeeded.
    void failed(const QString &reason);

    /// A value is too large to be stored.
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
