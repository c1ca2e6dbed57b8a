#include "ShelfItem.h"
#include "StoredRecords.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

class ShelfItemTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aWidgetComesBeforeAShortcutBeforeAnApplication() {
        ShelfItem item{.id = QStringLiteral("id"), .name = QStringLiteral("name")};
        QCOMPARE(item.kind(), QString());
        item.path = QStringLiteral("/apps/editor.desktop");
        QCOMPARE(item.kind(), QStringLiteral("application"));
        item.shortcutName = QStringLiteral("Resize");
        item.widgetName = QStringLiteral("Weather"); // not a widget
        QCOMPARE(item.kind(), QStringLiteral("shortcut"));
        QVERIFY(item.removable());
        item.widgetName = QStringLiteral("Clock");
        QCOMPARE(item.kind(), QStringLiteral("widget"));
        QVERIFY(!item.removable());
    }

    void aNameIsShownInOneLineWithoutDirectionMarks() {
        const QString name = QStringLiteral("a\n\u202eb\u200b\u2028\U0001F469\u200d\U0001F467 50%");
        QCOMPARE(ShelfItem::forShortcut(name).shownName(),
                 QStringLiteral("a b \U0001F469\u200d\U0001F467 50%"));
    }

    void itemsSurviveStoring() {
        ShelfItem widget = ShelfItem::forWidget(Widget::Notes);
        widget.visible = false;
        widget.favorite = true;
        const QString empty = QStringLiteral(""); // present, unlike a missing one
        const QString path = QStringLiteral("/a/./b.desktop");
        const QList<ShelfItem> items{
            widget, ShelfItem::forApplication(path, QStringLiteral("B")),
            ShelfItem::forShortcut(QStringLiteral("日本語 \"q\" \\ / \n\t\u0001")),
            ShelfItem{.id = empty, .name = empty, .widgetName = empty, .path = empty}};
        QVERIFY(decodeRecords<ShelfItem>(encodeRecords(items)) == items);
        QCOMPARE(items.at(1).id, QStringLiteral("/a/b.desktop"));
        QCOMPARE(encodeRecords(QList{ShelfItem::forWidget(Widget::Clock)}),
                 QByteArray(R"([{"favorite":false,"id":"widget:Clock","name":"Clock",)"
                            R"("visible":true,"widgetName":"Clock"}])"));
        const ShelfItem expected{.id = QStringLiteral("a"), .name = QStringLiteral("A")};
        QVERIFY(decodeRecords<ShelfItem>(
                    R"([{"id":"a","name":"A","widgetName":null,"visible":true,)"
                    R"("favorite":false,"icon":{"x":[1,null]}}])") == QList{expected});
    }

    void otherDocumentsAreRefused() {
        const QByteArray valid = R"({"id":"a","name":"A","visible":true,"favorite":false})";
        const auto isRefused = [](const QByteArray &document) {
            return !decodeRecords<ShelfItem>(document);
        };
        QVERIFY(!isRefused('[' + valid + ']'));
        QVERIFY(isRefused("") && isRefused(valid) && isRefused('[' + valid));
        for (const char *other :
             {R"({"name":"B","visible":true,"favorite":false})", R"("b")",
              R"({"id":"b","name":null,"visible":true,"favorite":false})",
              R"({"id":"b","name":"B","visible":1,"favorite":false})",
              R"({"id":"b","name":"B","path":false,"visible":true,"favorite":false})"}) {
            QVERIFY2(isRefused('[' + valid + ',' + other + ']'), other);
        }
    }
};

static const RegisteredTest<ShelfItemTest> registeredShelfItemTest;

} // namespace perchly

#include "ShelfItemTest.moc"
