#include "KeyedRows.h"
#include "RowFields.h"
#include "TestRegistry.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

namespace perchly {

namespace {

struct Letters : KeyedRows {
    Letters()
        : KeyedRows({"name", "number"}) {}

    static Rows rowsOf(const QString &names, int number) {
        Rows rows;
        for (const QChar name : names) {
            rows.append({name, {QString(name), number}});
        }
        return rows;
    }
    void set(const QString &names, int number = 0) { setRows(rowsOf(names, number)); }
    void overwrite(const QString &names) { overwriteRows(rowsOf(names, 0)); }

    [[nodiscard]] QString names() const { return fieldsOf(*this, "name").join(QString()); }
};

} // namespace

class KeyedRowsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void remainingRowsKeepTheirIndexes() {
        Letters rows;
        const QAbstractItemModelTester tester(
            &rows, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QRandomGenerator random(7);
        for (int round = 0; round < 500; ++round) {
            const QString before = rows.names();
            QList<QPersistentModelIndex> indexes;
            for (int row = 0; row < rows.count(); ++row) {
                indexes.append(rows.index(row));
            }
            QString after;
            for (int count = random.bounded(9); count > 0; --count) {
                after += QChar(u'a' + random.bounded(6)); // may repeat keys
            }
            const bool overwrites = random.bounded(4) == 0;
            overwrites ? rows.overwrite(after) : rows.set(after, round);
            QCOMPARE(rows.names(), after);
            for (qsizetype row = 0; row < indexes.size() && !overwrites; ++row) {
                const qsizetype earlier = before.first(row).count(before.at(row));
                const bool stays = after.count(before.at(row)) > earlier;
                QCOMPARE(indexes.at(row).isValid(), stays);
                QVERIFY(!stays || after.at(indexes.at(row).row()) == before.at(row));
            }
        }
    }

    void announcesOnlyChanges() {
        Letters rows;
        rows.set(QStringLiteral("abcd"));
        const QSignalSpy removed(&rows, &QAbstractItemModel::rowsRemoved);
        const QSignalSpy inserted(&rows, &QAbstractItemModel::rowsInserted);
        const QSignalSpy changed(&rows, &QAbstractItemModel::dataChanged);
        rows.set(QStringLiteral("axyzd"));
        QCOMPARE(removed.size() + inserted.size(), 2);
        QCOMPARE(changed.size(), 0);
        rows.set(QStringLiteral("a"), 1);
        QCOMPARE(changed.size(), 1);
        const QList<int> roles{KeyedRows::firstRole + 1, Qt::UserRole};
        QCOMPARE(changed.at(0).at(2).value<QList<int>>(), roles);
        QCOMPARE(rows.index(0).data(Qt::UserRole).toMap().value(QStringLiteral("number")), 1);
    }
};

static const RegisteredTest<KeyedRowsTest> registeredKeyedRowsTest;

} // namespace perchly

#include "KeyedRowsTest.moc"
