#include "InstalledApplications.h"
#include "FakeApplicationCatalog.h"
#include "FakeOpenPanel.h"
#include "FakePreferences.h"
#include "TestRegistry.h"

#include <QAbstractItemModelTester>
#include <QLocale>
#include <QSignalSpy>
#include <QTest>

namespace perchly {

class InstalledApplicationsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        m_library.emplace(m_preferences, m_catalog, m_openPanel);
        m_model.emplace();
        m_model->setLibrary(&*m_library);
        m_tester = std::make_unique<QAbstractItemModelTester>(
            &*m_model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    }
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void aSearchNarrowsTheRows_data() {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("search");
        QTest::addColumn<QString>("names");
        const auto row = [](const char *name, const char *search, const char *names,
                            const char *locale = "en_US") {
            QTest::newRow(name) << QString::fromLatin1(locale) << QString::fromUtf8(search)
                                << QString::fromUtf8(names);
        };
        const char *all = "Alpha|BETA|Café|Ilk|Ωmega";
        row("nothing shows all of them", "", all);
        row("a part in the middle", "et", "BETA");
        row("any letter case", "aLPHa", "Alpha");
        row("capitals of other scripts", "ω", "Ωmega");
        row("capitals with accents", "CAFÉ", "Café");
        row("accents that are encoded otherwise", "cafe\u0301", "Café");
        row("accents count", "cafe", "");
        row("blanks count", "alpha ", "");
        row("what patterns mean elsewhere", ".*", "");
        row("the letter i", "ilk", "Ilk");
        row("the letter i in Turkish", "ılk", "Ilk", "tr_TR");
    }

    void aSearchNarrowsTheRows() {
        QFETCH(const QString, locale);
        QFETCH(const QString, search);
        QFETCH(const QString, names);
        QLocale::setDefault(QLocale(locale));
        install("Alpha|BETA|Café|Ilk|Ωmega");
        m_model->setSearch(search);
        QCOMPARE(shown(), names);
        QCOMPARE(m_model->count(), names.isEmpty() ? 0 : names.count(QLatin1Char('|')) + 1);
        m_model->setSearch({});
        QCOMPARE(m_model->count(), 5);
    }

    /// So that a view keeps its place.
    void rowsThatStayAreNotTouched_data() {
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("removed");
        QTest::addColumn<int>("inserted");
        QTest::newRow("the same again") << QStringLiteral("a|b|c|d") << 0 << 0;
        QTest::newRow("one more at the start") << QStringLiteral("0|a|b|c|d") << 0 << 1;
        QTest::newRow("one more in the middle") << QStringLiteral("a|b|bb|c|d") << 0 << 1;
        QTest::newRow("one like its neighbour") << QStringLiteral("a|b|b|c|d") << 0 << 1;
        QTest::newRow("one less at the end") << QStringLiteral("a|b|c") << 1 << 0;
        QTest::newRow("another one") << QStringLiteral("a|x|c|d") << 1 << 1;
        QTest::newRow("none left") << QString() << 4 << 0;
    }

    void rowsThatStayAreNotTouched() {
        QFETCH(const QString, after);
        QFETCH(const int, removed);
        QFETCH(const int, inserted);
        install("a|b|c|d");
        const QSignalSpy resets(&*m_model, &QAbstractItemModel::modelReset);
        const QSignalSpy removals(&*m_model, &QAbstractItemModel::rowsRemoved);
        const QSignalSpy insertions(&*m_model, &QAbstractItemModel::rowsInserted);
        install(after.toUtf8().constData());
        QCOMPARE(shown(), after);
        const auto rows = [](const QSignalSpy &spy) {
            int count = 0;
            for (const QVariantList &change : spy) {
                count += change.at(2).toInt() - change.at(1).toInt() + 1;
            }
            return count;
        };
        QCOMPARE(rows(removals), removed);
        QCOMPARE(rows(insertions), inserted);
        QCOMPARE(resets.count(), 0);
    }

    void rowsTellWhatTheShelfHas() {
        install("a|b");
        const auto added = [this](int row) {
            return m_model->index(row).data(InstalledApplications::AddedRole).toBool();
        };
        const QSignalSpy changes(&*m_model, &QAbstractItemModel::dataChanged);
        QVERIFY(!added(0));
        const auto item =
            m_model->index(1).data(InstalledApplications::ItemRole).value<ShelfItem>();
        m_library->add(item);
        QVERIFY(!added(0) && added(1));
        m_library->toggle(item.id, ShelfLibrary::Flag::Visible);
        QVERIFY(!added(1));
        QCOMPARE(changes.count(), 2);
        m_library->toggle(item.id, ShelfLibrary::Flag::Favorite);
        QCOMPARE(changes.count(), 2);
        QCOMPARE(m_model->index(1).data(InstalledApplications::PathRole).toString(),
                 QStringLiteral("/b"));
        m_library.reset();
        QCOMPARE(m_model->count(), 0);
    }

private:
    void install(const char *names) {
        QList<FoundApplication> applications;
        for (const QString &name :
             QString::fromUtf8(names).split(QLatin1Char('|'), Qt::SkipEmptyParts)) {
            applications.append({QLatin1Char('/') + name, name});
        }
        m_library->refresh();
        m_catalog.finish(applications);
    }
    [[nodiscard]] QString shown() const {
        QStringList names;
        for (int row = 0; row < m_model->rowCount(); ++row) {
            names.append(m_model->index(row).data(InstalledApplications::NameRole).toString());
        }
        return names.join(QLatin1Char('|'));
    }

    FakePreferences m_preferences;
    FakeApplicationCatalog m_catalog;
    FakeOpenPanel m_openPanel;
    std::optional<ShelfLibrary> m_library;
    std::optional<InstalledApplications> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

static const RegisteredTest<InstalledApplicationsTest> registeredInstalledApplicationsTest;

} // namespace perchly

#include "InstalledApplicationsTest.moc"
