#include "ShelfLibrary.h"
#include "Announcements.h"
#include "FakeApplicationCatalog.h"
#include "FakeOpenPanel.h"
#include "FakePreferences.h"
#include "PreferenceKeys.h"
#include "TestRegistry.h"

#include <QTest>
#include <QUrl>

namespace perchly {

namespace {

const QStringList itemsAnnounced{QStringLiteral("itemsChanged"), QStringLiteral("shownChanged")};

/// Shortcuts by their names; "-a" is a hidden one and "a*" a favourite.
QList<ShelfItem> items(const char *text) {
    QList<ShelfItem> result;
    for (QString name : QString::fromUtf8(text).split(u' ', Qt::SkipEmptyParts)) {
        const bool hidden = name.startsWith(u'-');
        const bool favourite = name.endsWith(u'*');
        result.append(ShelfItem::forShortcut(name.remove(u'-').remove(u'*')));
        result.last().visible = !hidden;
        result.last().favorite = favourite;
    }
    return result;
}

QString text(const QList<ShelfItem> &items) {
    QStringList words;
    for (const ShelfItem &item : items) {
        words.append((item.visible ? QString() : QStringLiteral("-")) + item.name +
                     (item.favorite ? QStringLiteral("*") : QString()));
    }
    return words.join(u' ');
}

QString id(const char *name) {
    return ShelfItem::forShortcut(QString::fromUtf8(name)).id;
}

/// The preferences that hold a library of these items.
QMap<QString, PreferenceValue> holding(const QList<ShelfItem> &items) {
    return {{keys::shelfLibrary, encodeShelfItems(items)}};
}

/// A library over these preferences, and what it writes and announces from then on.
struct LibraryFixture {
    explicit LibraryFixture(const QMap<QString, PreferenceValue> &values) {
        preferences.values = values;
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
        QTest::addColumn<PreferenceValue>("stored");
        QTest::newRow("a string instead of data") << PreferenceValue(QStringLiteral("[]"));
        QTest::newRow("a torn document") << PreferenceValue(QByteArray("[{\"id\":"));
    }

    void whatCannotBeReadIsReplacedByTheWidgets() {
        QFETCH(PreferenceValue, stored);
        const LibraryFixture fixture({{keys::shelfLibrary, stored}});
        QCOMPARE(text(fixture.library->items()),
                 QStringLiteral("Clock Focus timer Music Quick note Calendar"));
        QCOMPARE(fixture.library->items().first().id, QStringLiteral("widget:Clock"));
        QVERIFY(fixture.library->shown() == fixture.library->items());
        QVERIFY(fixture.stored() == fixture.library->items());
    }

    void anEmptyLibraryStaysEmpty() {
        const LibraryFixture fixture(holding({}));
        QVERIFY(fixture.library->items().isEmpty() && fixture.library->shown().isEmpty());
        QVERIFY(fixture.stored() == QList<ShelfItem>());
    }

    void favouritesOnlyIsRestoredIfItIsABoolean() {
        QVERIFY(LibraryFixture({{keys::favoritesOnly, true}}).library->favoritesOnly());
        QVERIFY(!LibraryFixture({{keys::favoritesOnly, 1.0}}).library->favoritesOnly());
    }

    void whatIsVisibleIsShownInOrder() {
        LibraryFixture fixture(holding(items("a -b c* -d* e*")));
        QCOMPARE(text(fixture.library->shown()), QStringLiteral("a c* e*"));
        fixture.library->setFavoritesOnly(true);
        QCOMPARE(text(fixture.library->shown()), QStringLiteral("c* e*"));
    }

    /// Every edit: what it makes of "a b c", and that it is stored and announced exactly when
    /// something happened.
    void edits_data() {
        using Edit = std::function<void(ShelfLibrary &)>;
        using Flag = ShelfLibrary::Flag;
        QTest::addColumn<QString>("before");
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<QString>("after");
        const auto row = [](const char *name, const char *before, const Edit &edit,
                            const char *after) {
            QTest::newRow(name) << QString::fromUtf8(before) << edit << QString::fromUtf8(after);
        };
        const auto add = [](const char *item) {
            return [item](ShelfLibrary &library) { library.add(items(item).first()); };
        };
        const auto toggle = [](const char *name, Flag flag) {
            return [=](ShelfLibrary &library) { library.toggle(id(name), flag); };
        };
        const auto move = [](const char *name, int by) {
            return [=](ShelfLibrary &library) { library.move(id(name), by); };
        };
        const auto remove = [](const char *name) {
            return [name](ShelfLibrary &library) { library.remove(id(name)); };
        };
        const char *abc = "a b c";
        row("a new item goes to the end, with its flags", abc, add("-d*"), "a b c -d*");
        row("a hidden item comes back in its place, as it was", "a -b* c", add("b"), "a b* c");
        row("adding what is visible changes nothing but is saved", abc, add("-b*"), abc);
        row("of two with one identifier the first comes back", "-a -a", add("a"), "a -a");
        row("toggling hides", abc, toggle("b", Flag::Visible), "a -b c");
        row("toggling marks a favourite", abc, toggle("b", Flag::Favorite), "a b* c");
        row("moving later swaps with the next, hidden or not", "a -b c", move("a", 1), "-b a c");
        row("moving by two swaps, and leaves the one between", abc, move("c", -2), "c b a");
        row("removing takes every item with the identifier", "a b a", remove("a"), "b");
        const auto nothing = [](const char *name, const Edit &edit) {
            QTest::newRow(name) << QStringLiteral("a b c") << edit << QString();
        };
        nothing("an unknown item is not toggled", toggle("A", Flag::Visible));
        nothing("an unknown item does not move", move("A", 1));
        nothing("nor into the list from before its start", move("A", 2));
        nothing("an unknown item is not removed", remove("A"));
        nothing("nothing moves past the start", move("b", -2));
        nothing("nothing moves past the end", move("c", 1));
    }

    void edits() {
        QFETCH(QString, before);
        QFETCH(std::function<void(ShelfLibrary &)>, edit);
        QFETCH(QString, after);
        const bool saved = !after.isNull();
        LibraryFixture fixture(holding(items(qPrintable(before))));
        edit(*fixture.library);
        QCOMPARE(text(fixture.library->items()), saved ? after : before);
        QVERIFY(fixture.stored() == fixture.library->items());
        QCOMPARE(fixture.preferences.written,
                 saved ? QStringList{QString(keys::shelfLibrary)} : QStringList());
        QCOMPARE(fixture.announcements->take(), saved ? itemsAnnounced : QStringList());
    }

    /// Whoever hears of a change, or is killed by it, finds it in force and stored.
    void changesAreStoredWhenTheyAreAnnounced() {
        LibraryFixture fixture(holding(items("a")));
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
        fixture.library->add(items("b").first());
        fixture.library->setFavoritesOnly(true);
        fixture.library->setItems({});
        QCOMPARE(heard, 6);
        const LibraryFixture next(fixture.preferences.values);
        QVERIFY(next.library->items().isEmpty() && next.library->favoritesOnly());
    }

    void refreshingFindsWhatIsInstalled() {
        LibraryFixture fixture({});
        QVERIFY(fixture.library->installed().isEmpty());
        fixture.library->refresh();
        fixture.library->refresh();
        Q_EMIT fixture.catalog.changed();
        QCOMPARE(fixture.catalog.searches.size(), 3U);
        QVERIFY(fixture.announcements->take().isEmpty());
        // Whichever ends last counts.
        fixture.catalog.finish({{QStringLiteral("/b"), QStringLiteral("B")}}, 1);
        fixture.catalog.finish({{QStringLiteral("/x/../a"), QStringLiteral("A")}});
        QVERIFY(fixture.library->installed() ==
                QList({ShelfItem::forApplication(QStringLiteral("/x/../a"), QStringLiteral("A"))}));
        QCOMPARE(fixture.announcements->take(), QStringList({QStringLiteral("installedChanged"),
                                                             QStringLiteral("installedChanged")}));
        QVERIFY(fixture.preferences.written.isEmpty());
        fixture.library.reset();
        fixture.catalog.finish({}); // nobody is there any more
    }

    void browsingAddsWhatIsChosen() {
        ShelfItem back =
            ShelfItem::forApplication(QStringLiteral("/a"), QStringLiteral("Old name"));
        const ShelfItem added =
            ShelfItem::forApplication(QStringLiteral("/b"), QStringLiteral("Name of /b"));
        ShelfItem before = back;
        before.visible = false;
        const ShelfItem other = ShelfItem::forShortcut(QStringLiteral("c"));
        LibraryFixture fixture(holding({before, other}));
        fixture.library->browse();
        QVERIFY(fixture.openPanel.open());
        QCOMPARE(fixture.openPanel.open()->confirmLabel, QStringLiteral("Add to shelf"));
        QCOMPARE(fixture.openPanel.open()->folder, QStringLiteral("/usr/share/applications"));
        QCOMPARE(fixture.openPanel.open()->choice, OpenPanel::Choice::Applications);
        fixture.openPanel.choose({QUrl::fromLocalFile(QStringLiteral("/b")),
                                  QUrl(QStringLiteral("https://example.org/c")),
                                  QUrl::fromLocalFile(QStringLiteral("/a"))});
        QTRY_COMPARE(fixture.library->items().size(), 3);
        QVERIFY(fixture.library->items() == QList({back, other, added}));

        fixture.library->browse();
        fixture.openPanel.choose({});
        QCoreApplication::processEvents();
        QCOMPARE(fixture.library->items().size(), 3);
        fixture.library->browse();
        fixture.library.reset();
        QVERIFY(!fixture.openPanel.open());
    }
};

static const RegisteredTest<ShelfLibraryTest> registeredShelfLibraryTest;

} // namespace perchly

#include "ShelfLibraryTest.moc"
