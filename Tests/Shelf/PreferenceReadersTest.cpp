#include "FakePreferences.h"
#include "TestRegistry.h"

#include <QTest>

#include <limits>

namespace perchly {

class PreferenceReadersTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void noReaderConverts_data() {
        QTest::addColumn<PreferenceValue>("stored");
        QTest::newRow("a boolean reads as nothing else") << PreferenceValue(true);
        QTest::newRow("a false boolean is stored, not absent") << PreferenceValue(false);
        QTest::newRow("a number reads as no boolean, not even 1") << PreferenceValue(1.0);
        QTest::newRow("a zero is stored, not absent") << PreferenceValue(0.0);
        QTest::newRow("a string of digits is no number") << PreferenceValue(QStringLiteral("1"));
        QTest::newRow("an empty string is stored, not absent")
            << PreferenceValue(QStringLiteral(""));
        QTest::newRow("data is no string") << PreferenceValue(QByteArray("1"));
        QTest::newRow("empty data is stored, not absent") << PreferenceValue(QByteArray(""));
    }

    void noReaderConverts() {
        QFETCH(PreferenceValue, stored);
        const QString key = QStringLiteral("key");
        FakePreferences preferences;
        preferences.setValue(key, stored);

        const auto expected = [&stored]<class T>(T) {
            return std::holds_alternative<T>(stored) ? std::optional(std::get<T>(stored))
                                                     : std::nullopt;
        };
        QVERIFY(preferences.boolean(key) == expected(bool()));
        QVERIFY(preferences.number(key) == expected(double()));
        QVERIFY(preferences.string(key) == expected(QString()));
        QVERIFY(preferences.data(key) == expected(QByteArray()));
        QCOMPARE(preferences.wholeNumber(key).has_value(), std::holds_alternative<double>(stored));

        preferences.removeValue(key);
        QVERIFY(!preferences.boolean(key) && !preferences.number(key) && !preferences.string(key) &&
                !preferences.data(key) && !preferences.wholeNumber(key));
    }

    void wholeNumbers_data() {
        QTest::addColumn<double>("stored");
        QTest::addColumn<std::optional<qint64>>("expected");
        const auto row = [](const char *name, double stored, std::optional<qint64> expected) {
            QTest::newRow(name) << stored << expected;
        };
        row("a negative one", -3, -3);
        row("negative zero is zero", -0.0, 0);
        row("a fraction is none", 0.5, {});
        row("the smallest number above one is none", 1 + 2e-16, {});
        row("the largest that a double counts to", 9007199254740992.0, 9007199254740992);
        row("its negative", -9007199254740992.0, -9007199254740992);
        row("a larger one might be another number", 9007199254740994.0, {});
        row("one beyond 64 bits is none", 1e300, {});
        row("infinity is none", std::numeric_limits<double>::infinity(), {});
        row("negative infinity is none", -std::numeric_limits<double>::infinity(), {});
        row("not a number is none", std::numeric_limits<double>::quiet_NaN(), {});
    }

    void wholeNumbers() {
        QFETCH(double, stored);
        QFETCH(std::optional<qint64>, expected);
        FakePreferences preferences;
        preferences.setNumber(QStringLiteral("key"), stored);
        QVERIFY(preferences.wholeNumber(QStringLiteral("key")) == expected);
    }
};

static const RegisteredTest<PreferenceReadersTest> registered;

} // namespace perchly

#include "PreferenceReadersTest.moc"
