#include "DocumentFuzz.h"
#include "FakeHosts.h"
#include "PreferenceKeys.h"
#include "Productivity.h"
#include "TestRegistry.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace perchly {

namespace {

struct LayoutFixture {
    void save(const QString &name) { productivity.saveLayout(name, &library, &model); }

    [[nodiscard]] QByteArray stored() const {
        return fake.hosts.preferences->data(keys::savedLayouts).value_or(QByteArray());
    }

    FakeHosts fake;
    ShelfLibrary library{*fake.hosts.preferences, *fake.hosts.catalog, *fake.hosts.openPanel};
    ShelfModel model{*fake.hosts.clock, *fake.hosts.preferences, *fake.hosts.alertSound};
    Productivity productivity{fake.hosts};
};

const QByteArray document(
    R"([{"id":"6F9619FF-8B86-D011-B42D-00C04FC964FF","name":"Work ✓","favoritesOnly":true,)"
    R"("left":"Music","right":"Calendar","extra":1,"items":[{"id":"widget:Clock","name":"Clock",)"
    R"("widgetName":"Clock","visible":true,"favorite":false},{"id":"/a.desktop","name":"A",)"
    R"("path":"/a.desktop","visible":false,"favorite":true}]}])");

/// The document with one field of its only layout replaced, or without it.
QByteArray with(QLatin1StringView field, const QJsonValue &value) {
    QJsonObject layout = QJsonDocument::fromJson(document).array().first().toObject();
    if (value.isUndefined()) {
        layout.remove(field);
    } else {
        layout.insert(field, value);
    }
    return QJsonDocument(QJsonArray{layout}).toJson();
}

} // namespace

class SavedLayoutsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aLayoutRestoresTheWholeSetup() {
        LayoutFixture fixture;
        fixture.library.move(QStringLiteral("widget:Clock"), 1);
        fixture.library.toggle(QStringLiteral("widget:Music"), ShelfLibrary::Flag::Favorite);
        fixture.library.setFavoritesOnly(true);
        fixture.model.setLeft(Widget::Music);
        fixture.model.setRight(Widget::Notes);
        const QList<ShelfItem> items = fixture.library.items();
        fixture.save(QStringLiteral(" \n Work\u2003\n"));

        fixture.library.setItems({});
        fixture.library.setFavoritesOnly(false);
        fixture.model.setLeft(Widget::Clock);
        fixture.model.setRight(Widget::Timer);
        QCOMPARE(fixture.productivity.layouts().size(), 1);
        const SavedLayout layout = fixture.productivity.layouts().first();
        QCOMPARE(layout.name, QStringLiteral("Work"));
        fixture.productivity.applyLayout(layout.id, &fixture.library, &fixture.model);
        QCOMPARE(fixture.library.items(), items);
        QVERIFY(fixture.library.favoritesOnly());
        QCOMPARE(fixture.model.left(), Widget::Music);
        QCOMPARE(fixture.model.right(), Widget::Notes);
        QCOMPARE(fixture.fake.preferences.string(keys::leftWidget), QStringLiteral("Music"));
        QCOMPARE(fixture.fake.preferences.string(keys::rightWidget), QStringLiteral("Quick note"));
        QVERIFY(fixture.productivity.message().isNull());
    }

    void aLayoutOfNothingEmptiesTheShelfAndPinsTheDefaults() {
        LayoutFixture fixture;
        fixture.model.setLeft(Widget::Notes);
        fixture.model.setRight(Widget::Notes);
        SavedLayout layout;
        layout.left = QStringLiteral("clock");
        fixture.productivity.apply(layout, fixture.library, fixture.model);
        QCOMPARE(fixture.fake.preferences.data(keys::shelfLibrary), QByteArray("[]"));
        QCOMPARE(fixture.fake.preferences.string(keys::leftWidget), QStringLiteral("Clock"));
        QCOMPARE(fixture.model.right(), Widget::Timer);
    }

    void layoutsSurviveARestartInTheirOrder() {
        LayoutFixture fixture;
        const QString name = QStringLiteral("Same");
        fixture.save(name);
        fixture.save(QStringLiteral(" \t\n"));
        fixture.save(QStringLiteral("Other"));
        fixture.save(name);
        const QList<SavedLayout> saved = fixture.productivity.layouts();
        QCOMPARE(saved.size(), 3);
        QVERIFY(saved.at(0).id != saved.at(2).id);
        const Productivity next(fixture.fake.hosts);
        QCOMPARE(next.layouts(), saved);

        for (const SavedLayout &layout : saved) {
            fixture.productivity.removeLayout(layout.id);
        }
        QCOMPARE(fixture.stored(), QByteArray("[]"));
    }

    void theStoredForm() {
        const auto layouts = decodeLayouts(document);
        QVERIFY(layouts.has_value());
        const SavedLayout &layout = layouts->first();
        QCOMPARE(layout.items.at(1), (ShelfItem{.id = QStringLiteral("/a.desktop"),
                                                .name = QStringLiteral("A"),
                                                .path = QStringLiteral("/a.desktop"),
                                                .visible = false,
                                                .favorite = true}));
        const QJsonObject written =
            QJsonDocument::fromJson(encodeLayouts(*layouts)).array().first().toObject();
        QCOMPARE(written.value(QLatin1StringView("id")),
                 QStringLiteral("6F9619FF-8B86-D011-B42D-00C04FC964FF"));
        QCOMPARE(decodeLayouts(encodeLayouts(*layouts)), layouts);
    }

    void aDocumentThatIsNotOneIsLeftAlone_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("a torn one") << document.chopped(20);
        QTest::newRow("an object") << QByteArray("{}");
        QTest::newRow("a list of something else") << QByteArray("[1]");
        for (const char *field : {"id", "name", "items", "favoritesOnly", "left", "right"}) {
            const QLatin1StringView key(field);
            QTest::addRow("without “%s”", field) << with(key, QJsonValue::Undefined);
            QTest::addRow("with a number for “%s”", field) << with(key, 1);
        }
        for (const char *id : {"", "work", "{6F9619FF-8B86-D011-B42D-00C04FC964FF}",
                               "6F9619FF8B86D011B42D00C04FC964FF"}) {
            QTest::addRow("with the identifier “%s”", id)
                << with(QLatin1StringView("id"), QLatin1StringView(id));
        }
    }

    void aDocumentThatIsNotOneIsLeftAlone() {
        QFETCH(QByteArray, content);
        LayoutFixture fixture;
        fixture.fake.preferences.setData(keys::savedLayouts, content);
        Productivity productivity(fixture.fake.hosts);
        QCOMPARE(productivity.layouts(), QList<SavedLayout>());
        QCOMPARE(fixture.stored(), content);
        productivity.saveLayout(QStringLiteral("New"), &fixture.library, &fixture.model);
        QCOMPARE(Productivity(fixture.fake.hosts).layouts().size(), 1);
    }

    void noDocumentBreaksTheDecoder() { fuzzDecoder(document, decodeLayouts, encodeLayouts); }
};

static const RegisteredTest<SavedLayoutsTest> registeredSavedLayoutsTest;

} // namespace perchly

#include "SavedLayoutsTest.moc"
