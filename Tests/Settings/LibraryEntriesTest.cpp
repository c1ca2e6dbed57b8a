#include "LibraryEntries.h"

#include "FakeHosts.h"
#include "TestRegistry.h"

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <iterator>

namespace perchly {

class LibraryEntriesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyChangeKeepsTheOtherRows();
    void anIdentifierMayBeThereTwice();
    void theLibraryMayGoFirst();
};

namespace {

ShelfItem application(int number) {
    const QString name = QString::number(number);
    return ShelfItem::forApplication(QStringLiteral("/apps/") + name, name);
}

QList<ShelfItem> rows(const LibraryEntries &model) {
    QList<ShelfItem> found;
    for (int row = 0; row < model.rowCount(); ++row) {
        found.append(model.index(row).data(LibraryEntries::EntryRole).value<ShelfItem>());
    }
    return found;
}

} // namespace

/// What a person does to entries in any order: rows follow their entries, and nothing else changes.
void LibraryEntriesTest::everyChangeKeepsTheOtherRows() {
    FakeHosts fakes;
    ShelfLibrary library(fakes.preferences, fakes.catalog, fakes.openPanel);
    LibraryEntries model;
    model.setLibrary(&library);
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    QRandomGenerator random(7);
    for (int step = 0; step < 500; ++step) {
        QHash<QString, QPersistentModelIndex> places;
        for (int row = 0; row < model.rowCount(); ++row) {
            places.insert(rows(model).at(row).id, model.index(row));
        }
        QList<ShelfItem> items = library.items();
        const QString some =
            items.isEmpty() ? QString() : items.at(random.bounded(items.size())).id;
        switch (random.bounded(5)) {
        case 0:
            library.add(application(random.bounded(12)));
            break;
        case 1:
            library.remove(some);
            break;
        case 2:
            library.move(some, random.bounded(2) == 0 ? 1 : -1);
            break;
        case 3:
            library.toggle(some, ShelfLibrary::Flag::Favorite);
            break;
        default:
            std::shuffle(items.begin(), items.end(), random);
            library.setItems(items);
        }
        QCOMPARE(rows(model), library.items());
        for (auto place = places.cbegin(); place != places.cend(); ++place) {
            const bool there = std::ranges::count(library.items(), place.key(), &ShelfItem::id) > 0;
            QCOMPARE(place->isValid(), there);
            QVERIFY(!there || rows(model).at(place->row()).id == place.key());
        }
    }
}

void LibraryEntriesTest::anIdentifierMayBeThereTwice() {
    FakeHosts fakes;
    ShelfLibrary library(fakes.preferences, fakes.catalog, fakes.openPanel);
    LibraryEntries model;
    model.setLibrary(&library);
    for (const auto &numbers : {QList<int>{1, 2, 1, 3}, {3, 1, 2}, {1, 1, 1}, {2}, {}}) {
        QList<ShelfItem> items;
        std::ranges::transform(numbers, std::back_inserter(items), application);
        library.setItems(items);
        QCOMPARE(rows(model), items);
    }
}

void LibraryEntriesTest::theLibraryMayGoFirst() {
    FakeHosts fakes;
    LibraryEntries model;
    auto library =
        std::make_unique<ShelfLibrary>(fakes.preferences, fakes.catalog, fakes.openPanel);
    model.setLibrary(library.get());
    QCOMPARE(model.rowCount(), 5);
    library.reset();
    QCOMPARE(model.rowCount(), 0);
}

static const RegisteredTest<LibraryEntriesTest> registered;

} // namespace perchly

#include "LibraryEntriesTest.moc"
