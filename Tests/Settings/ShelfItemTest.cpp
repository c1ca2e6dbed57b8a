#include "ShelfItem.h"
#include "TestRegistry.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace perchly {

class ShelfItemTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void kinds_data() {
        QTest::addColumn<ShelfItem>("item");
        QTest::addColumn<QString>("kind");
        const auto row = [](const char *name, const ShelfItem &item, const char *kind) {
            QTest::newRow(name) << item << QString::fromLatin1(kind);
        };
        const auto text = [](const char *words) { return QString::fromLatin1(words); };
        ShelfItem item{.id = text("id"), .name = text("name")};
        row("nothing in particular", item, "");
        item.path = text("/apps/editor.desktop");
        row("an application by its path", item, "application");
        item.shortcutName = text("Resize");
        row("a shortcut, even with a path", item, "shortcut");
        item.widgetName = text("Weather");
        row("a widget that there is not does not count", item, "shortcut");
        item.widgetName = text("Clock");
        row("a widget before all", item, "widget");
    }

    void kinds() {
        QFETCH(ShelfItem, item);
        QTEST(item.kind(), "kind");
        QCOMPARE(item.widgetTitle(),
                 item.kind() == QLatin1StringView("widget") ? QStringLiteral("Clock") : QString());
    }

    void identifiers_data() {
        QTest::addColumn<ShelfItem>("item");
        QTest::addColumn<QString>("id");
        const QString name = QStringLiteral("Editor");
        const auto application = [&](const char *row, const char *path, const char *id) {
            QTest::newRow(row) << ShelfItem::forApplication(QString::fromUtf8(path), name)
                               << QString::fromUtf8(id);
        };
        QTest::newRow("a widget by its title")
            << ShelfItem::forWidget(Widget::Timer) << QStringLiteral("widget:Focus timer");
        QTest::newRow("a shortcut by its name, whatever it contains")
            << ShelfItem::forShortcut(QStringLiteral("Täglich: “Licht” 🌙"))
            << QStringLiteral("shortcut:Täglich: “Licht” 🌙");
        application("an application by its path", "/usr/share/applications/editor.desktop",
                    "/usr/share/applications/editor.desktop");
        application("dot segments do not count", "/usr/./share/x/../applications/editor.desktop",
                    "/usr/share/applications/editor.desktop");
        application("repeated slashes do not count", "/usr//share/editor.desktop",
                    "/usr/share/editor.desktop");
        application("case and letters beyond ASCII count", "/opt/Über/Éditeur.desktop",
                    "/opt/Über/Éditeur.desktop");
    }

    void identifiers() {
        QFETCH(ShelfItem, item);
        QFETCH(QString, id);
        QCOMPARE(item.id, id);
        QVERIFY(item.visible && !item.favorite);
        QCOMPARE(int(item.widgetName.has_value()) + int(item.path.has_value()) +
                     int(item.shortcutName.has_value()),
                 1);
    }

    void applicationsKeepTheirPathAsItWasGiven() {
        const QString path = QStringLiteral("/usr/./share/editor.desktop");
        QCOMPARE(ShelfItem::forApplication(path, QStringLiteral("Editor")).path, path);
    }

    void itemsSurviveStoring_data() {
        QTest::addColumn<QList<ShelfItem>>("items");
        const auto flagged = [](ShelfItem item, bool visible, bool favorite) {
            item.visible = visible;
            item.favorite = favorite;
            return item;
        };
        const ShelfItem widget = ShelfItem::forWidget(Widget::Notes);
        QTest::newRow("none") << QList<ShelfItem>();
        QTest::newRow("a hidden widget") << QList{flagged(widget, false, false)};
        QTest::newRow("a favourite widget") << QList{flagged(widget, true, true)};
        QTest::newRow("a hidden favourite") << QList{flagged(widget, false, true)};
        QTest::newRow("a shortcut") << QList{ShelfItem::forShortcut(QStringLiteral("Lights"))};
        QTest::newRow("an application") << QList{
            ShelfItem::forApplication(QStringLiteral("/a/./b.desktop"), QStringLiteral("B"))};
        QTest::newRow("names in other scripts, quotes, backslashes and control characters")
            << QList{ShelfItem::forShortcut(
                   QStringLiteral("日本語 عربى 👩‍👩‍👧 \"q\" \\ / \n\t\u0001"))};
        QTest::newRow("empty strings, which are not absent ones")
            << QList{ShelfItem{.id = QStringLiteral(""),
                               .name = QStringLiteral(""),
                               .widgetName = QStringLiteral(""),
                               .path = QStringLiteral(""),
                               .shortcutName = QStringLiteral("")}};
        QTest::newRow("order and repeated identifiers")
            << QList{widget, ShelfItem::forShortcut(QStringLiteral("b")), widget,
                     ShelfItem::forShortcut(QStringLiteral("a"))};
    }

    void itemsSurviveStoring() {
        QFETCH(QList<ShelfItem>, items);
        const auto decoded = decodeShelfItems(encodeShelfItems(items));
        QVERIFY(decoded.has_value());
        QVERIFY(*decoded == items);
    }

    void absentFieldsAreLeftOut() {
        const QJsonObject stored =
            QJsonDocument::fromJson(encodeShelfItems({ShelfItem::forWidget(Widget::Clock)}))
                .array()
                .first()
                .toObject();
        const QJsonObject expected{{QStringLiteral("id"), QStringLiteral("widget:Clock")},
                                   {QStringLiteral("name"), QStringLiteral("Clock")},
                                   {QStringLiteral("widgetName"), QStringLiteral("Clock")},
                                   {QStringLiteral("visible"), true},
                                   {QStringLiteral("favorite"), false}};
        QCOMPARE(stored, expected);
    }

    void accepted_data() {
        QTest::addColumn<QByteArray>("document");
        const auto row = [](const char *name, const char *document) {
            QTest::newRow(name) << QByteArray(document);
        };
        row("the required fields only",
            R"([{"id":"a","name":"A","visible":true,"favorite":false}])");
        row("optional fields that are null",
            R"([{"id":"a","name":"A","widgetName":null,"path":null,"shortcutName":null,)"
            R"("visible":true,"favorite":false}])");
        row("unknown fields of any type",
            R"([{"id":"a","name":"A","visible":true,"favorite":false,"icon":{"x":[1,null]}}])");
        row("another order, white space and escapes",
            " [ {\n\"favorite\" : false, \"visible\":true,\t\"name\":\"\\u0041\", \"id\":\"a\" } "
            "]\n");
    }

    void accepted() {
        QFETCH(QByteArray, document);
        const auto decoded = decodeShelfItems(document);
        QVERIFY(decoded.has_value());
        const ShelfItem expected{.id = QStringLiteral("a"), .name = QStringLiteral("A")};
        QVERIFY(*decoded == QList{expected});
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
        row("null", "null");
        row("a number", "3");
        row("an object instead of an array",
            R"({"id":"a","name":"A","visible":true,"favorite":false})");
        row("a torn document", encodeShelfItems({ShelfItem::forWidget(Widget::Clock)}).chopped(12));
        row("something after the array", "[] []");
        row("text that is not UTF-8",
            "[{\"id\":\"\xff\xfe\",\"name\":\"A\",\"visible\":true,\"favorite\":false}]");
        row("nesting without end", QByteArray("[").repeated(100000));
        second("one element without an id", R"({"name":"B","visible":true,"favorite":false})");
        second("one element without a name", R"({"id":"b","visible":true,"favorite":false})");
        second("one element without visible", R"({"id":"b","name":"B","favorite":false})");
        second("one element without favorite", R"({"id":"b","name":"B","visible":true})");
        second("a required field that is null",
               R"({"id":"b","name":null,"visible":true,"favorite":false})");
        second("an id that is a number", R"({"id":1,"name":"B","visible":true,"favorite":false})");
        second("visible as a number", R"({"id":"b","name":"B","visible":1,"favorite":false})");
        second("favorite as a string",
               R"({"id":"b","name":"B","visible":true,"favorite":"false"})");
        second("a widget that is a number",
               R"({"id":"b","name":"B","widgetName":1,"visible":true,"favorite":false})");
        second("a path that is a boolean",
               R"({"id":"b","name":"B","path":false,"visible":true,"favorite":false})");
        second("a shortcut that is an object",
               R"({"id":"b","name":"B","shortcutName":{},"visible":true,"favorite":false})");
        second("an element that is an array", "[]");
        second("an element that is a string", R"("b")");
        second("an element that is null", "null");
        second("field names in another case",
               R"({"ID":"b","Name":"B","Visible":true,"Favorite":false})");
    }

    void refused() {
        QFETCH(QByteArray, document);
        QVERIFY(!decodeShelfItems(document));
    }
};

static const RegisteredTest<ShelfItemTest> registered;

} // namespace perchly

#include "ShelfItemTest.moc"
