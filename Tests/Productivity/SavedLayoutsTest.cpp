#include "SavedLayouts.h"
#include "FakeHosts.h"
#include "PreferenceKeys.h"
#include "ShelfLibrary.h"
#include "ShelfModel.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

namespace {

struct LayoutFixture {
    FakeHosts fake;
    ShelfLibrary library{fake.preferences, fake.catalog, fake.openPanel};
    ShelfModel model{fake.clock, fake.preferences, fake.alertSound};
    SavedLayouts layouts{fake.preferences, library, model};
};

} // namespace

class SavedLayoutsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aLayoutRestoresTheWholeSetupAfterARestart() {
        LayoutFixture fixture;
        fixture.library.move(QStringLiteral("widget:Clock"), 1);
        fixture.library.toggle(QStringLiteral("widget:Music"), ShelfLibrary::Flag::Favorite);
        fixture.library.setFavoritesOnly(true);
        fixture.model.setLeft(Widget::Music);
        fixture.model.setRight(Widget::Notes);
        const QList<ShelfItem> items = fixture.library.items();
        fixture.layouts.save(QStringLiteral(" \n Work\u2003\n"));
        fixture.layouts.save(QStringLiteral(" \t\n"));

        fixture.library.setItems({});
        fixture.library.setFavoritesOnly(false);
        fixture.model.setLeft(Widget::Clock);
        SavedLayouts next(fixture.fake.preferences, fixture.library, fixture.model);
        QCOMPARE(next.count(), 1);
        QCOMPARE(next.field(0, "name"), QStringLiteral("Work"));
        next.apply(next.field(0, "id").toUuid());
        QCOMPARE(fixture.library.items(), items);
        QVERIFY(fixture.library.favoritesOnly());
        QCOMPARE(fixture.model.left(), Widget::Music);
        QCOMPARE(fixture.model.right(), Widget::Notes);
        QCOMPARE(fixture.fake.preferences.string(keys::leftWidget), QStringLiteral("Music"));
        QCOMPARE(fixture.fake.preferences.string(keys::rightWidget), QStringLiteral("Quick note"));
        next.remove(next.field(0, "id").toUuid());
        QCOMPARE(fixture.fake.preferences.data(keys::savedLayouts), QByteArray("[]"));
    }

    void unknownWidgetsBecomeTheDefaults() {
        LayoutFixture fixture;
        fixture.model.setLeft(Widget::Notes);
        fixture.fake.preferences.setData(
            keys::savedLayouts,
            R"([{"id":"6F9619FF-8B86-D011-B42D-00C04FC964FF","name":"a","favoritesOnly":false,)"
            R"("left":"clock","right":"","items":[]}])");
        SavedLayouts layouts(fixture.fake.preferences, fixture.library, fixture.model);
        layouts.apply(layouts.field(0, "id").toUuid());
        QVERIFY(fixture.library.items().isEmpty());
        QCOMPARE(fixture.model.left(), Widget::Clock);
        QCOMPARE(fixture.model.right(), Widget::Timer);
    }

    void unreadableLayoutsStayStoredUntilOneIsSaved() {
        LayoutFixture fixture;
        const QByteArray torn("[{\"id\":");
        fixture.fake.preferences.setData(keys::savedLayouts, torn);
        SavedLayouts layouts(fixture.fake.preferences, fixture.library, fixture.model);
        QCOMPARE(layouts.count(), 0);
        QCOMPARE(fixture.fake.preferences.data(keys::savedLayouts), torn);
        layouts.save(QStringLiteral("New"));
        QVERIFY(fixture.fake.preferences.data(keys::savedLayouts) != torn);
    }
};

static const RegisteredTest<SavedLayoutsTest> registeredSavedLayoutsTest;

} // namespace perchly

#include "SavedLayoutsTest.moc"
