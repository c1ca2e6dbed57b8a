#include "FakeHosts.h"
#include "InstalledApplications.h"
#include "PreferenceKeys.h"
#include "StoredRecords.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

namespace {

/// Shortcuts by name; "-a" is hidden and "a*" a favorite.
QList<ShelfItem> items(const QString &text) {
    QList<ShelfItem> result;
    for (QString name : text.split(u' ', Qt::SkipEmptyParts)) {
        const bool hidden = name.startsWith(u'-');
        const bool favorite = name.endsWith(u'*');
        result.append(ShelfItem::forShortcut(name.remove(u'-').remove(u'*')));
        result.last().visible = !hidden;
        result.last().favorite = favorite;
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

struct LibraryFixture {
    explicit LibraryFixture(const PreferenceValue &stored = QByteArray()) {
        fake.preferences.values.insert(keys::shelfLibrary, stored);
        library.emplace(fake.preferences, fake.catalog, fake.openPanel);
    }

    /// The entries, if they match the stored ones.
    [[nodiscard]] QString entries() const {
        const QByteArray stored = fake.preferences.data(keys::shelfLibrary).value_or(QByteArray());
        const bool isStored = decodeRecords<ShelfItem>(stored) == library->items();
        return isStored ? text(library->items()) : QStringLiteral("different");
    }

    FakeHosts fake;
    std::optional<ShelfLibrary> library;
};

} // namespace

class ShelfLibraryTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void unreadableLibraryIsKeptUntilTheFirstChange() {
        const QByteArray damaged("[{\"id\":");
        LibraryFixture fixture(damaged);
        QCOMPARE(text(fixture.library->items()),
                 QStringLiteral("Clock Focus timer Music Quick note Calendar"));
        QCOMPARE(fixture.fake.preferences.data(keys::shelfLibrary), damaged);
        QCOMPARE(LibraryFixture(QByteArray("[]")).entries(), QString());
    }

    void showsOnlyVisibleEntriesAndFavorites() {
        LibraryFixture fixture(encodeRecords(items(QStringLiteral("a -b c* -d* e*"))));
        QCOMPARE(text(fixture.library->shown()), QStringLiteral("a c* e*"));
        fixture.library->setFavoritesOnly(true);
        QCOMPARE(text(fixture.library->shown()), QStringLiteral("c* e*"));
        QVERIFY(ShelfLibrary(fixture.fake.preferences, fixture.fake.catalog, fixture.fake.openPanel)
                    .favoritesOnly());
    }

    void editsAreStored() {
        LibraryFixture fixture(encodeRecords(items(QStringLiteral("a -b* c"))));
        ShelfLibrary &library = *fixture.library;
        const auto id = [](const char *name) {
            return ShelfItem::forShortcut(QString::fromLatin1(name)).id;
        };
        library.add(items(QStringLiteral("b")).first());
        library.add(items(QStringLiteral("-d")).first());
        QCOMPARE(fixture.entries(), QStringLiteral("a b* c -d"));
        library.toggle(id("a"), ShelfLibrary::Flag::Visible);
        library.toggle(id("c"), ShelfLibrary::Flag::Favorite);
        QCOMPARE(fixture.entries(), QStringLiteral("-a b* c* -d"));
        library.move(id("a"), 1);
        library.move(id("d"), -2);
        library.move(id("d"), -2); // before the start
        QCOMPARE(fixture.entries(), QStringLiteral("b* -d c* -a"));
        library.setItems(items(QStringLiteral("a b a")));
        library.remove(id("a"));
        QCOMPARE(fixture.entries(), QStringLiteral("b"));
    }

    void findsInstalledApplications() {
        LibraryFixture fixture;
        InstalledApplications shown;
        shown.setProperty("library", QVariant::fromValue(&*fixture.library));
        fixture.library->refresh();
        fixture.fake.catalog.finish({{QStringLiteral("/a"), QStringLiteral("Café")},
                                     {QStringLiteral("/c"), QStringLiteral("Mail")}});
        shown.setProperty("search", QStringLiteral("CAFE\u0301"));
        QCOMPARE(shown.count(), 1);
        const auto item = shown.field(0, "item").value<ShelfItem>();
        fixture.library->add(item);
        QVERIFY(shown.field(0, "added").toBool());
        fixture.library->toggle(item.id, ShelfLibrary::Flag::Visible);
        QVERIFY(!shown.field(0, "added").toBool());
        Q_EMIT fixture.fake.catalog.changed();
        fixture.library.reset();
        fixture.fake.catalog.finish({}); // after the library is destroyed
    }

    void searchPutsTheBestMatchFirst() {
        LibraryFixture fixture;
        fixture.library->refresh();
        QList<FoundApplication> found;
        for (const char *name :
             {"Remailer", "My-Mail", "Mailbox", "Thunderbird", "Évolution", "MAIL", "Mutt"}) {
            found.append({QString::fromUtf8(name), QString::fromUtf8(name)});
        }
        found[3].searchText = QStringLiteral("Mail Client\nE-mail\nthunderbird-bin");
        found[6].searchText = QStringLiteral("\nmail");
        fixture.fake.catalog.finish(found);
        const std::pair<const char *, const char *> searches[]{
            {"mail", "MAIL Mailbox My-Mail Remailer Thunderbird Mutt"},
            {"ÉVO", "Évolution"},
            {"bird-b", "Thunderbird"},
            {"client", "Thunderbird"}};
        for (const auto &[search, expected] : searches) {
            QCOMPARE(text(fixture.library->installedMatching(QString::fromUtf8(search))),
                     QString::fromUtf8(expected));
        }
    }

    void addsChosenApplications() {
        LibraryFixture fixture(QByteArray("[]"));
        fixture.library->browse();
        fixture.fake.openPanel.dialogs.answer(
            QUrl::fromStringList({QStringLiteral("file:///b"), QStringLiteral("https://e.org/c")}));
        QCOMPARE(fixture.fake.catalog.described, QStringList(QStringLiteral("/b")));
        fixture.fake.catalog.finish({{QStringLiteral("/b"), QStringLiteral("B")}});
        QCOMPARE(fixture.entries(), QStringLiteral("B"));
    }

    void storesItemsAsJson() {
        ShelfItem widget = ShelfItem::forWidget(Widget::Notes);
        widget.favorite = true;
        const QString path = QStringLiteral("/a/./b.desktop");
        const QList<ShelfItem> items{
            widget, ShelfItem::forApplication(path, QStringLiteral("B")),
            ShelfItem::forShortcut(QStringLiteral("日本語 \"q\" \\ / \n\t\u0001"))};
        QVERIFY(decodeRecords<ShelfItem>(encodeRecords(items)) == items);
        QCOMPARE(items.at(1).id, QStringLiteral("/a/b.desktop"));
        QCOMPARE(encodeRecords(QList{ShelfItem::forWidget(Widget::Clock)}),
                 QByteArray(R"([{"favorite":false,"id":"widget:Clock","name":"Clock",)"
                            R"("visible":true,"widgetName":"Clock"}])"));
    }

    void readsOnlyCompleteItems() {
        const QByteArray item(R"([{"id":"a","name":"A","path":null,"visible":true,)"
                              R"("favorite":false,"later":[1]}])");
        const ShelfItem expected{.id = QStringLiteral("a"), .name = QStringLiteral("A")};
        QVERIFY(decodeRecords<ShelfItem>(item) == QList{expected});
        QVERIFY(!decodeRecords<ShelfItem>(item.chopped(1)));
        for (const auto &[part, other] :
             {std::pair(R"("id":"a",)", ""), {R"("A")", "null"}, {"true", "1"}}) {
            QVERIFY(!decodeRecords<ShelfItem>(QByteArray(item).replace(part, other)));
        }
    }
};

static const RegisteredTest<ShelfLibraryTest> registeredShelfLibraryTest;

} // namespace perchly

#include "ShelfLibraryTest.moc"
