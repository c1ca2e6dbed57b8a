#include "ShelfItem.h"
#include "DocumentFuzz.h"
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
        item.widgetName = QStringLiteral("Weather"); // which there is not
        QCOMPARE(item.kind(), QStringLiteral("shortcut"));
        QCOMPARE(item.widgetTitle(), QString());
        item.widgetName = QStringLiteral("Clock");
        QCOMPARE(item.kind(), QStringLiteral("widget"));
        QCOMPARE(item.widgetTitle(), QStringLiteral("Clock"));
    }

    void identifiersSayWhatAnItemIs() {
        QCOMPARE(ShelfItem::forWidget(Widget::Timer).id, QStringLiteral("widget:Focus timer"));
        QCOMPARE(ShelfItem::forShortcut(QStringLiteral("Täglich: “Licht” 🌙")).id,
                 QStringLiteral("shortcut:Täglich: “Licht” 🌙"));
        const QString path = QStringLiteral("/usr/./share/x/../Éditeur.desktop");
        const ShelfItem application = ShelfItem::forApplication(path, QStringLiteral("E"));
        QCOMPARE(application.id, QStringLiteral("/usr/share/Éditeur.desktop"));
        QCOMPARE(application.path, path);
        QVERIFY(application.visible && !application.favorite && !application.widgetName);
    }

    void itemsSurviveStoring() {
        ShelfItem widget = ShelfItem::forWidget(Widget::Notes);
        widget.visible = false;
        widget.favorite = true;
        const QString empty = QStringLiteral("");
        const QList<ShelfItem> items{
            widget,
            ShelfItem::forApplication(QStringLiteral("/a/./b.desktop"), QStringLiteral("B")),
            // Names in other scripts, quotes, backslashes and control characters.
            ShelfItem::forShortcut(
                QStringLiteral("日本語 عربى 👩‍👩‍👧 \"q\" \\ / \n\t\u0001")),
            // Empty strings, which are not absent ones.
            ShelfItem{.id = empty,
                      .name = empty,
                      .widgetName = empty,
                      .path = empty,
                      .shortcutName = empty},
            widget};
        const auto decoded = decodeShelfItems(encodeShelfItems(items));
        QVERIFY(decoded.has_value());
        QVERIFY(*decoded == items);
        QVERIFY(decodeShelfItems(encodeShelfItems({})) == QList<ShelfItem>());
    }

    void noDocumentBreaksTheDecoder() {
        const QByteArray document = encodeShelfItems(
            {ShelfItem::forWidget(Widget::Notes), ShelfItem::forShortcut(QStringLiteral("ä \"q\"")),
             ShelfItem::forApplication(QStringLiteral("/a/b.desktop"), QStringLiteral("B"))});
        fuzzDecoder(document, decodeShelfItems, encodeShelfItems);
    }

    void aNameIsShownInOneLineAndItsOwnDirection() {
        const QString name = QStringLiteral("a\n\u202eb\u200b\u2028\U0001F469\u200d\U0001F467 50%");
        const ShelfItem item = ShelfItem::forShortcut(name);
        QCOMPARE(item.shownName(), QStringLiteral("a b \U0001F469\u200d\U0001F467 50%"));
        QCOMPARE(item.shortcutName, name);
        QVERIFY(item.removable() && !ShelfItem::forWidget(Widget::Clock).removable());
    }

    void storedItemsLeaveOutWhatIsAbsent() {
        QCOMPARE(encodeShelfItems({ShelfItem::forWidget(Widget::Clock)}),
                 QByteArray(R"([{"favorite":false,"id":"widget:Clock","name":"Clock",)"
                            R"("visible":true,"widgetName":"Clock"}])"));
    }

    void whatIsNullOrUnknownIsPassedOver() {
        const auto decoded = decodeShelfItems(
            R"([{"id":"a","name":"A","widgetName":null,"path":null,"shortcutName":null,)"
            R"("visible":true,"favorite":false,"icon":{"x":[1,null]}}])");
        const ShelfItem expected{.id = QStringLiteral("a"), .name = QStringLiteral("A")};
        QVERIFY(decoded == QList{expected});
    }

    void refused_data() {
        QTest::addColumn<QByteArray>("document");
        const auto row = [](const char *name, const QByteArray &document) {
            QTest::newRow(name) << document;
        };
        const auto second = [&row](const char *name, const char *element) {
            row(name, QByteArray(R"([{"id":"a","name":"A","visible":true,"favorite":false},)") +
                          element + "]");
        };
        row("nothing", "");
        row("an object instead of an array",
            R"({"id":"a","name":"A","visible":true,"favorite":false})");
        row("a torn document", encodeShelfItems({ShelfItem::forWidget(Widget::Clock)}).chopped(12));
        row("something after the array", "[] []");
        row("text that is not UTF-8",
            "[{\"id\":\"\xff\xfe\",\"name\":\"A\",\"visible\":true,\"favorite\":false}]");
        row("nesting without end", QByteArray("[").repeated(100000));
        second("one element without an id", R"({"name":"B","visible":true,"favorite":false})");
        second("one element without favorite", R"({"id":"b","name":"B","visible":true})");
        second("a required field that is null",
               R"({"id":"b","name":null,"visible":true,"favorite":false})");
        second("visible as a number", R"({"id":"b","name":"B","visible":1,"favorite":false})");
        second("a path that is a boolean",
               R"({"id":"b","name":"B","path":false,"visible":true,"favorite":false})");
        second("an element that is a string", R"("b")");
        second("field names in another case",
               R"({"ID":"b","Name":"B","Visible":true,"Favorite":false})");
    }

    void refused() {
        QFETCH(QByteArray, document);
        QVERIFY(!decodeShelfItems(document));
    }
};

static const RegisteredTest<ShelfItemTest> registeredShelfItemTest;

} // namespace perchly

#include "ShelfItemTest.moc"
