#include "ShelfLibrary.h"
#include "Announcements.h"
#include "FakeApplicationCatalog.h"
#include "FakeOpenPanel.h"
#include "FakePreferences.h"
#include "PreferenceKeys.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

namespace {

const QString clockId = QStringLiteral("widget:Clock");
const QString calendarId = QStringLiteral("widget:Calendar");
const QStringList defaultIds{clockId, QStringLiteral("widget:Focus timer"),
                             QStringLiteral("widget:Music"), QStringLiteral("widget:Quick note"),
                             calendarId};
const QStringList itemsAnnounced{QStringLiteral("itemsChanged"), QStringLiteral("shownChanged")};

ShelfItem hidden(ShelfItem item) {
    item.visible = false;
    return item;
}

ShelfItem favourite(ShelfItem item) {
    item.favorite = true;
    return item;
}

ShelfItem named(const char *name) {
    return ShelfItem::forShortcut(QString::fromUtf8(name));
}

QStringList identifiers(const QList<ShelfItem> &items) {
    QStringList result;
    for (const ShelfItem &item : items) {
        result.append(item.id);
    }
    return result;
}

/// A library with these items, and what it writes and announces from then on.
struct LibraryFixture {
    explicit LibraryFixture(const QList<ShelfItem> &items) {
        preferences.values[keys::shelfLibrary] = encodeShelfItems(items);
        library.emplace(preferences, catalog, openPanel);
        announcements.emplace(*library);
        preferences.written.clear();
    }

    [[nodiscard]] std::optional<QList<ShelfItem>> stored() const {
        return decodeShelfItems(preferences.data(keys::shelfLibrary).value_or(QByteArray()));
    }

    FakePreferences preferences;
    FakeApplicationCatalog catalog;
    FakeOpenPanel openPanel;
    std::optional<ShelfLibrary> library;
    std::optional<Announcements> announcements;
};

} // namespace

class ShelfLibraryTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void whatCannotBeReadIsReplacedByTheWidgets_data() {
        QTest::addColumn<std::optional<PreferenceValue>>("stored");
        const auto row = [](const char *name, std::optional<PreferenceValue> stored) {
            QTest::newRow(name) << std::move(stored);
        };
        row("nothing is stored", std::nullopt);
        row("a string is stored instead of data", PreferenceValue(QStringLiteral("[]")));
        row("a boolean is stored", PreferenceValue(true));
        row("a number is stored", PreferenceValue(0.0));
        row("empty data is stored", PreferenceValue(QByteArray()));
        row("a torn document is stored", PreferenceValue(QByteArray("[{\"id\":")));
        row("one element lacks its favourite flag",
            PreferenceValue(QByteArray(R"([{"id":"a","name":"A","visible":true,"favorite":false},)"
                                       R"({"id":"b","name":"B","visible":true}])")));
    }

    void whatCannotBeReadIsReplacedByTheWidgets() {
        QFETCH(std::optional<PreferenceValue>, stored);
        FakePreferences preferences;
        if (stored) {
            preferences.values[keys::shelfLibrary] = *stored;
        }
        FakeApplicationCatalog catalog;
        FakeOpenPanel openPanel;
        const ShelfLibrary library(preferences, catalog, openPanel);
        QCOMPARE(identifiers(library.items()), defaultIds);
        for (const ShelfItem &item : library.items()) {
            QVERIFY(item.visible && !item.favorite);
        }
        QVERIFY(library.shown() == library.items());
        QVERIFY(library.installed().isEmpty());
        QVERIFY(decodeShelfItems(preferences.data(keys::shelfLibrary).value_or(QByteArray())) ==
                library.items());
    }

    void anEmptyLibraryStaysEmpty() {
        const LibraryFixture fixture({});
        QVERIFY(fixture.library->items().isEmpty());
        QVERIFY(fixture.library->shown().isEmpty());
        QVERIFY(fixture.stored() == QList<ShelfItem>());
    }

    void theStoredOrderAndFlagsAreKept() {
        const QList<ShelfItem> items{hidden(named("b")),
                                     favourite(ShelfItem::forWidget(Widget::Calendar)), named("a")};
        const LibraryFixture fixture(items);
        QVERIFY(fixture.library->items() == items);
    }

    void bothKeysAreWrittenAtStart() {
        FakePreferences preferences;
        FakeApplicationCatalog catalog;
        FakeOpenPanel openPanel;
        const ShelfLibrary library(preferences, catalog, openPanel);
        QCOMPARE(preferences.written,
                 QStringList({QString(keys::shelfLibrary), QString(keys::favoritesOnly)}));
        QCOMPARE(preferences.boolean(keys::favoritesOnly), std::optional(false));
    }

    void favouritesOnlyIsRestoredIfItIsABoolean() {
        FakePreferences preferences;
        FakeApplicationCatalog catalog;
        FakeOpenPanel openPanel;
        preferences.values[keys::favoritesOnly] = true;
        QVERIFY(ShelfLibrary(preferences, catalog, openPanel).favoritesOnly());
        preferences.values[keys::favoritesOnly] = 1.0;
        QVERIFY(!ShelfLibrary(preferences, catalog, openPanel).favoritesOnly());
        preferences.values[keys::favoritesOnly] = QStringLiteral("true");
        QVERIFY(!ShelfLibrary(preferences, catalog, openPanel).favoritesOnly());
    }

    void shown_data() {
        QTest::addColumn<bool>("favoritesOnly");
        QTest::addColumn<QList<ShelfItem>>("items");
        QTest::addColumn<QString>("names");
        const QList<ShelfItem> mixed{named("a"), hidden(named("b")), favourite(named("c")),
                                     hidden(favourite(named("d"))), favourite(named("e"))};
        QTest::newRow("what is visible, in order") << false << mixed << "a c e";
        QTest::newRow("of the favourites only the visible ones") << true << mixed << "c e";
        QTest::newRow("nothing when there are no favourites")
            << true << QList{named("a"), hidden(named("b"))} << "";
        QTest::newRow("nothing when all is hidden") << false << QList{hidden(named("a"))} << "";
    }

    void shown() {
        QFETCH(bool, favoritesOnly);
        QFETCH(QList<ShelfItem>, items);
        QFETCH(QString, names);
        LibraryFixture fixture(items);
        fixture.library->setFavoritesOnly(favoritesOnly);
        QStringList shownNames;
        for (const ShelfItem &item : fixture.library->shown()) {
            shownNames.append(item.name);
        }
        QCOMPARE(shownNames.join(u' '), names);
        QVERIFY(fixture.library->items() == items);
    }

    /// Every edit: what it makes of the items, and that they are stored and announced exactly when
    /// something happened.
    void edits_data() {
        using Edit = std::function<void(ShelfLibrary &)>;
        using Flag = ShelfLibrary::Flag;
        QTest::addColumn<QList<ShelfItem>>("before");
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<QList<ShelfItem>>("after");
        QTest::addColumn<bool>("saved");
        const QList<ShelfItem> abc{named("a"), named("b"), named("c")};
        const QString a = named("a").id;
        const QString b = named("b").id;
        const QString c = named("c").id;
        const QString unknown = QStringLiteral("shortcut:A");
        const auto row = [](const char *name, const QList<ShelfItem> &before, const Edit &edit,
                            const QList<ShelfItem> &after) {
            QTest::newRow(name) << before << edit << after << true;
        };
        const auto nothing = [&abc](const char *name, const Edit &edit) {
            QTest::newRow(name) << abc << edit << abc << false;
        };

        row("a new item goes to the end", abc, [](auto &library) { library.add(named("d")); },
            {named("a"), named("b"), named("c"), named("d")});
        row("an item keeps the flags that it is added with", {},
            [](auto &library) { library.add(hidden(favourite(named("d")))); },
            {hidden(favourite(named("d")))});
        ShelfItem renamed =
            ShelfItem::forApplication(QStringLiteral("/x/../b"), QStringLiteral("New name"));
        const ShelfItem old = hidden(
            favourite(ShelfItem::forApplication(QStringLiteral("/b"), QStringLiteral("Old name"))));
        ShelfItem back = old;
        back.visible = true;
        row("a hidden item comes back in its place, as it was", {named("a"), old, named("c")},
            [renamed](auto &library) { library.add(renamed); }, {named("a"), back, named("c")});
        row(
            "adding what is visible changes nothing but is saved", abc,
            [](auto &library) { library.add(hidden(favourite(named("b")))); }, abc);
        row("of two with one identifier the first comes back",
            {hidden(named("a")), hidden(named("a"))},
            [](auto &library) { library.add(named("a")); }, {named("a"), hidden(named("a"))});
        row("identifiers differ in case", {hidden(named("a"))},
            [](auto &library) { library.add(named("A")); }, {hidden(named("a")), named("A")});
        ShelfItem otherCopy =
            ShelfItem::forApplication(QStringLiteral("/opt/b"), QStringLiteral("Old name"));
        row("two copies of an application share a name", {old},
            [otherCopy](auto &library) { library.add(otherCopy); }, {old, otherCopy});

        row("toggling hides", abc, [b](auto &library) { library.toggle(b, Flag::Visible); },
            {named("a"), hidden(named("b")), named("c")});
        row("toggling marks a favourite", abc,
            [b](auto &library) { library.toggle(b, Flag::Favorite); },
            {named("a"), favourite(named("b")), named("c")});
        row("toggling twice restores the item", {named("a"), favourite(named("b"))},
            [b](auto &library) {
                library.toggle(b, Flag::Visible);
                library.toggle(b, Flag::Visible);
            },
            {named("a"), favourite(named("b"))});
        nothing("toggling an unknown item does nothing",
                [unknown](auto &library) { library.toggle(unknown, Flag::Visible); });

        row("moving later swaps with the next", abc, [a](auto &library) { library.move(a, 1); },
            {named("b"), named("a"), named("c")});
        row("moving earlier swaps with the one before", abc,
            [c](auto &library) { library.move(c, -1); }, {named("a"), named("c"), named("b")});
        row("moving by two swaps, and leaves the one between", abc,
            [a](auto &library) { library.move(a, 2); }, {named("c"), named("b"), named("a")});
        row("hidden items count as places", {named("a"), hidden(named("b")), named("c")},
            [a](auto &library) { library.move(a, 1); },
            {hidden(named("b")), named("a"), named("c")});
        nothing("the first cannot move earlier", [a](auto &library) { library.move(a, -1); });
        nothing("the last cannot move later", [c](auto &library) { library.move(c, 1); });
        nothing("nothing moves past the end", [b](auto &library) { library.move(b, 2); });
        nothing("nothing moves past the start", [b](auto &library) { library.move(b, -2); });
        nothing("an unknown item does not move",
                [unknown](auto &library) { library.move(unknown, 1); });
        nothing("an unknown item does not move into the list from before its start",
                [unknown](auto &library) { library.move(unknown, 2); });

        row("removing takes the item out", abc, [b](auto &library) { library.remove(b); },
            {named("a"), named("c")});
        row("removing takes every item with the identifier", {named("a"), named("b"), named("a")},
            [a](auto &library) { library.remove(a); }, {named("b")});
        nothing("removing an unknown item does nothing",
                [unknown](auto &library) { library.remove(unknown); });
    }

    void edits() {
        QFETCH(QList<ShelfItem>, before);
        QFETCH(std::function<void(ShelfLibrary &)>, edit);
        QFETCH(QList<ShelfItem>, after);
        QFETCH(bool, saved);
        LibraryFixture fixture(before);
        edit(*fixture.library);
        QCOMPARE(identifiers(fixture.library->items()), identifiers(after));
        QVERIFY(fixture.library->items() == after);
        QVERIFY(fixture.stored() == after);
        QCOMPARE(fixture.preferences.written.isEmpty(), !saved);
        QVERIFY(!fixture.preferences.written.contains(QString(keys::favoritesOnly)));
        const QStringList announced = fixture.announcements->take();
        QCOMPARE(announced.mid(0, 2), saved ? itemsAnnounced : QStringList());
    }

    void eachEditIsOneWrite() {
        LibraryFixture fixture({named("a"), named("b")});
        fixture.library->move(named("a").id, 1);
        QCOMPARE(fixture.preferences.written, QStringList{QString(keys::shelfLibrary)});
        QCOMPARE(fixture.announcements->take(), itemsAnnounced);
        fixture.library->setFavoritesOnly(true);
        QCOMPARE(fixture.preferences.written.mid(1), QStringList{QString(keys::favoritesOnly)});
        QCOMPARE(fixture.announcements->take(), QStringList({QStringLiteral("favoritesOnlyChanged"),
                                                             QStringLiteral("shownChanged")}));
    }

    /// Whoever hears of a change, or is killed by it, finds it in force and stored.
    void changesAreStoredWhenTheyAreAnnounced() {
        LibraryFixture fixture({named("a")});
        int heard = 0;
        const auto check = [&] {
            ++heard;
            QVERIFY(fixture.stored() == fixture.library->items());
            QCOMPARE(fixture.preferences.boolean(keys::favoritesOnly),
                     std::optional(fixture.library->favoritesOnly()));
        };
        connect(&*fixture.library, &ShelfLibrary::itemsChanged, this, check);
        connect(&*fixture.library, &ShelfLibrary::favoritesOnlyChanged, this, check);
        connect(&*fixture.library, &ShelfLibrary::shownChanged, this, check);
        fixture.library->add(named("b"));
        fixture.library->setFavoritesOnly(true);
        fixture.library->setItems({});
        QCOMPARE(heard, 6);
        QVERIFY(fixture.stored() == QList<ShelfItem>());
    }

    void editsOfTheNextRunStartFromTheStoredOnes() {
        LibraryFixture fixture({named("ä"), named("b")});
        fixture.library->move(named("b").id, -1);
        fixture.library->toggle(named("ä").id, ShelfLibrary::Flag::Visible);
        fixture.library->setFavoritesOnly(true);
        const ShelfLibrary next(fixture.preferences, fixture.catalog, fixture.openPanel);
        QVERIFY(next.items() == QList({named("b"), hidden(named("ä"))}));
        QVERIFY(next.favoritesOnly());
    }
};

static const RegisteredTest<ShelfLibraryTest> registered;

} // namespace perchly

#include "ShelfLibraryTest.moc"
