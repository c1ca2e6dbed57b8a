#include "FakeHosts.h"
#include "InstalledApplications.h"
#include "PreferenceKeys.h"
#include "StoredRecords.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

namespace {

/// Shortcuts by their names; "-a" is a hidden one and "a*" a favorite.
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
        fake.preferences.written.clear();
    }

    /// The stored entries; "different" if the rows or the store hold others.
    [[nodiscard]] QString entries() const {
        const QByteArray stored = fake.preferences.data(keys::shelfLibrary).value_or(QByteArray());
        QList<ShelfItem> rows;
        for (int row = 0; row < library->count(); ++row) {
            rows.append(library->field(row, "entry").value<ShelfItem>());
        }
        const bool same = rows == library->items() && decodeRecords<ShelfItem>(stored) == rows;
        return same ? text(rows) : QStringLiteral("different");
    }

    FakeHosts fake;
    std::optional<ShelfLibrary> library;
};

} // namespace

class ShelfLibraryTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void anUnreadableLibraryIsReplacedByTheWidgets() {
        const LibraryFixture fixture(QByteArray("[{\"id\":"));
        QCOMPARE(fixture.entries(), QStringLiteral("Clock Focus timer Music Quick note Calendar"));
        QCOMPARE(LibraryFixture(QByteArray("[]")).entries(), QString());
    }

    void onlyVisibleEntriesAreShown() {
        LibraryFixture fixture(encodeRecords(items(QStringLiteral("a -b c* -d* e*"))));
        QCOMPARE(text(fixture.library->shown()), QStringLiteral("a c* e*"));
        fixture.library->setFavoritesOnly(true);
        QCOMPARE(text(fixture.library->shown()), QStringLiteral("c* e*"));
        QVERIFY(ShelfLibrary(fixture.fake.preferences, fixture.fake.catalog, fixture.fake.openPanel)
                    .favoritesOnly());
    }

    void edits_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("edit");
        QTest::addColumn<QString>("after");
        const auto row = [](const char *before, const char *edit, const char *after) {
            QTest::newRow(edit) << QString::fromLatin1(before) << QString::fromLatin1(edit)
                                << QString::fromLatin1(after);
        };
        row("a b c", "add -d*", "a b c -d*");
        row("a -b* c", "add b", "a b* c");
        row("a b c", "hide b", "a -b c");
        row("a b c", "favorite b", "a b* c");
        row("a -b c", "move a 1", "-b a c");
        row("a b c", "move c -2", "c b a");
        row("a b c", "move b -2", "a b c");
        row("a b c", "move x 2", "a b c");
        row("a b a", "remove a", "b");
    }

    void edits() {
        QFETCH(QString, before);
        QFETCH(QString, edit);
        LibraryFixture fixture(encodeRecords(items(before)));
        const QStringList words = edit.split(u' ');
        const ShelfItem item = items(words.at(1)).first();
        const QString &verb = words.first();
        if (verb == QStringLiteral("add")) {
            fixture.library->add(item);
        } else if (verb == QStringLiteral("move")) {
            fixture.library->move(item.id, words.last().toInt());
        } else if (verb == QStringLiteral("remove")) {
            fixture.library->remove(item.id);
        } else {
            fixture.library->toggle(item.id, verb == QStringLiteral("hide")
                                                 ? ShelfLibrary::Flag::Visible
                                                 : ShelfLibrary::Flag::Favorite);
        }
        QTEST(fixture.entries(), "after");
        QCOMPARE(fixture.fake.preferences.written.isEmpty(), fixture.entries() == before);
    }

    void theLastSearchToEndCounts() {
        LibraryFixture fixture;
        InstalledApplications shown;
        shown.setProperty("library", QVariant::fromValue(&*fixture.library));
        fixture.library->refresh();
        Q_EMIT fixture.fake.catalog.changed();
        fixture.fake.catalog.finish({{QStringLiteral("/b"), QStringLiteral("B")}}, 1);
        fixture.fake.catalog.finish({{QStringLiteral("/a"), QStringLiteral("Café")},
                                     {QStringLiteral("/c"), QStringLiteral("Mail")}});
        QCOMPARE(shown.count(), 2);
        shown.setProperty("search", QStringLiteral("CAFE\u0301"));
        QCOMPARE(shown.count(), 1);
        QVERIFY(!shown.field(0, "added").toBool());
        const auto item = shown.field(0, "item").value<ShelfItem>();
        fixture.library->add(item);
        QVERIFY(shown.field(0, "added").toBool());
        fixture.library->toggle(item.id, ShelfLibrary::Flag::Visible);
        QVERIFY(!shown.field(0, "added").toBool());
        fixture.library->refresh();
        fixture.library.reset();
        fixture.fake.catalog.finish({}); // after the library is gone
    }

    void browsingAddsTheChosenFiles() {
        LibraryFixture fixture(QByteArray("[]"));
        fixture.library->browse();
        QCOMPARE(fixture.fake.openPanel.open()->choice, OpenPanel::Choice::Applications);
        fixture.fake.openPanel.choose({QUrl(QStringLiteral("file:///b")),
                                       QUrl(QStringLiteral("https://example.org/c")),
                                       QUrl(QStringLiteral("file:///a"))});
        QTRY_COMPARE(fixture.entries(), QStringLiteral("Name of /b Name of /a"));
        fixture.library->browse();
        fixture.library.reset();
        QVERIFY(!fixture.fake.openPanel.open());
    }
};

static const RegisteredTest<ShelfLibraryTest> registeredShelfLibraryTest;

} // namespace perchly

#include "ShelfLibraryTest.moc"
