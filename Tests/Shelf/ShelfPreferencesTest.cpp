#include "ShelfPreferences.h"
#include "Announcements.h"
#include "FakePreferences.h"
#include "PreferenceKeys.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

class ShelfPreferencesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyKeyHasItsDefaultAndItsAnnouncement_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("property");
        QTest::addColumn<QVariant>("initial");
        QTest::addColumn<PreferenceValue>("stored");
        QTest::addColumn<QVariant>("expected");
        const auto row = [](QLatin1StringView key, const char *property, const QVariant &initial,
                            const PreferenceValue &stored, const QVariant &expected) {
            QTest::newRow(key.data())
                << QString(key) << QString::fromLatin1(property) << initial << stored << expected;
        };
        const auto text = [](const char *words) { return QString::fromLatin1(words); };
        row(keys::shelfScale, "shelfScale", 1.0, 1.15, 1.15);
        row(keys::shelfTheme, "theme", text("Midnight"), text("Ocean"), text("Ocean"));
        row(keys::shelfAccent, "accent", text("Mint"), text("Blue"), text("Blue"));
        row(keys::shelfOpacity, "opacity", 1.0, 0.65, 0.65);
        row(keys::compactMode, "compact", false, true, true);
        row(keys::leftWidget, "savedLeft", text("Clock"), text("Quick note"), text("Quick note"));
        row(keys::rightWidget, "savedRight", text("Focus timer"), text("Music"), text("Music"));
        row(keys::quickNote, "note", text(""), text("milk\nand tea"), text("milk\nand tea"));
        row(keys::focusMinutes, "focusMinutes", 25, 50.0, 50);
    }

    void everyKeyHasItsDefaultAndItsAnnouncement() {
        QFETCH(QString, key);
        QFETCH(QString, property);
        QFETCH(QVariant, initial);
        QFETCH(PreferenceValue, stored);
        QFETCH(QVariant, expected);
        FakePreferences store;
        const ShelfPreferences preferences(store);
        Announcements announcements(preferences);
        const QByteArray name = property.toLatin1();
        const QStringList announced{property + QLatin1StringView("Changed")};
        const auto current = [&] { return preferences.property(name.constData()); };

        QCOMPARE(current(), initial);
        store.setValue(key, QByteArray("of another type"));
        QCOMPARE(current(), initial);
        QCOMPARE(announcements.take(), announced);
        store.setValue(key, stored);
        QCOMPARE(current(), expected);
        QCOMPARE(announcements.take(), announced);
        store.removeValue(key);
        QCOMPARE(current(), initial);
        QCOMPARE(announcements.take(), announced);
    }

    void otherKeysAnnounceNothing() {
        FakePreferences store;
        const ShelfPreferences preferences(store);
        Announcements announcements(preferences);
        store.setNumber(keys::hoverDelay, 1);
        store.setString(QStringLiteral("ShelfTheme"), QStringLiteral("Ocean"));
        store.setString(QStringLiteral("shelfTheme "), QStringLiteral("Ocean"));
        QCOMPARE(announcements.take(), QStringList());
    }

    void pinsAreStoredUnderTheirOwnKeys() {
        FakePreferences store;
        ShelfPreferences preferences(store);
        preferences.setSavedLeft(QStringLiteral("Music"));
        preferences.setSavedRight(QStringLiteral("Calendar"));
        QCOMPARE(store.string(keys::leftWidget), std::optional(QStringLiteral("Music")));
        QCOMPARE(store.string(keys::rightWidget), std::optional(QStringLiteral("Calendar")));
    }
};

static const RegisteredTest<ShelfPreferencesTest> registered;

} // namespace perchly

#include "ShelfPreferencesTest.moc"
