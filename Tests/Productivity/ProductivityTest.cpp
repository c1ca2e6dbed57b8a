#include "Productivity.h"
#include "FakeHosts.h"
#include "PreferenceKeys.h"
#include "RowFields.h"
#include "ShelfLibrary.h"
#include "ShelfModel.h"
#include "TestFiles.h"
#include "TestRegistry.h"

#include <QImage>
#include <QTemporaryDir>
#include <QTest>

namespace perchly {

using namespace std::chrono_literals;

namespace {

struct ToolsFixture {
    FakeHosts fake;
    ShelfLibrary library{fake.preferences, fake.catalog, fake.openPanel};
    ShelfModel model{fake.clock, fake.preferences, fake.alertSound};
    Productivity tools{fake.hosts, library, model};
    HeldFiles &held = *tools.held();
};

QList<QUrl> urls(const char *text) {
    return QUrl::fromStringList(QString::fromLatin1(text).split(u' '));
}

QString asText(const QList<QUrl> &urls) {
    return QUrl::toStringList(urls, QUrl::FullyEncoded).join(u' ');
}

} // namespace

class ProductivityTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void holdsEachFileAndLinkOnce() {
        ToolsFixture f;
        f.held.hold(urls("file:///a file:///a%5B1%5D%28b%29 file:///%FF%5B"));
        f.held.hold(urls("file:///a file://localhost/a file://elsewhere/a /a"));
        f.held.hold(urls("file:///a[1](b) file:///%FF%5B file:///%FE%5B"));
        f.held.hold(urls("ftp://a.org javascript:alert(1) httpss://a.org http://b http://b"));
        QCOMPARE(f.held.property("landed").toInt(), 4);
        QCOMPARE(
            asText(f.held.urls()),
            QStringLiteral("file:///a file:///a[1](b) file:///%FF%5B file:///%FE%5B http://b"));
    }

    void acceptsOnlyLinksWithLowerCaseSchemes() {
        ToolsFixture f;
        QVERIFY(f.held.holdDropped(
            QStringLiteral("# a comment\r\nHTTPS://a.example/\r\nhttps://b.example/\r\n\r\n"
                           "FILE:///tmp/a\r\nfile://elsewhere/tmp/b\njunk")));
        QVERIFY(!f.held.holdDropped(QStringLiteral("# nothing\njunk")));
        for (const char *typed : {"HTTPS://example.org", "example.org", " https://example.org",
                                  "https://e.org:port/"}) {
            QVERIFY2(!f.held.addLink(QString::fromLatin1(typed)), typed);
        }
        QVERIFY(f.held.addLink(QStringLiteral("https://example.org/ä?q=1#part")));
        QCOMPARE(asText(f.held.urls()), QStringLiteral("https://b.example/ file:///tmp/a "
                                                       "https://example.org/%C3%A4?q=1#part"));
    }

    void labelsHeldFilesByName() {
        ToolsFixture f;
        f.held.addFiles();
        f.fake.openPanel.dialogs.answer(
            urls("file:///tmp/100%25%20%C3%A4/ file:/// "
                 "file:///%E2%80%AEg%0A%F0%9F%91%A9%E2%80%8D%F0%9F%91%A7 file:///%E2%80%8B "
                 "https://example.org/a%20b"));
        QCOMPARE(fieldsOf(f.held, "label").join(u'|'),
                 QStringLiteral(
                     "100% ä|/|g \U0001F469\u200d\U0001F467|%E2%80%8B|https://example.org/a%20b"));
    }

    void findsAndCopiesPictures() {
        const QTemporaryDir folder;
        const QUrl picture = QUrl::fromLocalFile(folder.filePath(QStringLiteral("picture")));
        QVERIFY(QImage(3, 2, QImage::Format_RGB32).save(picture.toLocalFile(), "PNG"));
        ToolsFixture f;
        f.tools.clipboard()->copyImage(picture);
        f.fake.pictures.readings.answer(QByteArray("PNG"));
        QCOMPARE(f.fake.pasteboard.offered.png, QByteArray("PNG"));
        f.tools.clipboard()->copyImage(picture);
        f.fake.pictures.readings.answer(QByteArray());
        QCOMPARE(f.fake.pasteboard.offered.text, picture.toLocalFile());
        f.held.hold({picture});
        QTRY_VERIFY(f.held.field(0, "isPicture").toBool());
        QVERIFY(QFile::remove(picture.toLocalFile()));
        f.held.lookAgain();
        QTRY_VERIFY(!f.held.field(0, "isPicture").toBool());
    }

    void reportsFailures() {
        ToolsFixture f;
        f.tools.share(QUrl(QStringLiteral("file:///tmp/notes.txt")), {});
        QTRY_COMPARE(
            f.tools.message(),
            QStringLiteral("Could not share notes.txt. There is nothing to share with here."));
        f.fake.preferences.setString(keys::quickNote,
                                     QString(Preferences::maxValueBytes + 1, u'x'));
        QVERIFY(f.tools.message().startsWith(QStringLiteral("There is no room")));
        f.tools.briefNotice()(QStringLiteral("Done."));
        f.fake.clock.advance(3s);
        QCOMPARE(f.tools.message(), QString());
        f.tools.briefNotice()(QStringLiteral("Done."));
        f.tools.notice()(QStringLiteral("It failed."));
        f.fake.clock.advance(3s);
        QCOMPARE(f.tools.message(), QStringLiteral("It failed."));
    }

    void layoutRestoresTheWholeSetupAfterARestart() {
        ToolsFixture f;
        f.library.move(QStringLiteral("widget:Clock"), 1);
        f.library.toggle(QStringLiteral("widget:Music"), ShelfLibrary::Flag::Favorite);
        f.library.setFavoritesOnly(true);
        f.model.setLeft(Widget::Music);
        f.model.setRight(Widget::Notes);
        const QList<ShelfItem> items = f.library.items();
        f.tools.layouts()->save(QStringLiteral(" \n Work\u2003\n"));
        f.tools.layouts()->save(QStringLiteral(" \t\n"));

        f.library.setItems({});
        f.library.setFavoritesOnly(false);
        f.model.setLeft(Widget::Clock);
        SavedLayouts next(f.fake.preferences, f.library, f.model);
        QCOMPARE(next.count(), 1);
        QCOMPARE(next.field(0, "name"), QStringLiteral("Work"));
        next.apply(next.field(0, "id").toUuid());
        QCOMPARE(f.library.items(), items);
        QVERIFY(f.library.favoritesOnly());
        QCOMPARE(f.model.left(), Widget::Music);
        QCOMPARE(f.fake.preferences.string(keys::rightWidget), QStringLiteral("Quick note"));
        QByteArray stored = *f.fake.preferences.data(keys::savedLayouts);
        f.fake.preferences.setData(keys::savedLayouts,
                                   stored.replace(R"("left":"Music")", R"("left":"?")"));
        SavedLayouts later(f.fake.preferences, f.library, f.model);
        later.apply(later.field(0, "id").toUuid());
        QCOMPARE(f.model.left(), Widget::Clock);
        later.remove(later.field(0, "id").toUuid());
        QCOMPARE(f.fake.preferences.data(keys::savedLayouts), QByteArray("[]"));
    }

    void failedListKeepsEarlierShortcuts() {
        ToolsFixture f;
        Shortcuts &shortcuts = *f.tools.shortcuts();
        shortcuts.refresh();
        shortcuts.refresh();
        QCOMPARE(f.fake.shortcuts.calls.count(), 1U);
        f.fake.shortcuts.calls.answer(ShortcutsTool::Result{0, QStringLiteral("\nb\n\n a ")});
        shortcuts.refresh();
        f.fake.shortcuts.calls.answer(ShortcutsTool::Result{1, QStringLiteral("c")});
        QCOMPARE(shortcuts.count(), 2);
        QCOMPARE(shortcuts.field(1, "name"), QStringLiteral(" a "));
        QVERIFY(f.tools.message().startsWith(QStringLiteral("Could not load your shortcuts.")));
    }

    void shortcutsRunOneAtATimeAndReportTheirEnd() {
        ToolsFixture f;
        Shortcuts &shortcuts = *f.tools.shortcuts();
        const auto end = [&](int status, bool stop) {
            shortcuts.run(QStringLiteral("Resize"));
            shortcuts.run(QStringLiteral("Other")); // ignored
            if (stop) {
                shortcuts.stop();
            }
            f.fake.shortcuts.calls.answer(ShortcutsTool::Result{status});
            shortcuts.stop(); // nothing runs
            return f.tools.message();
        };
        QCOMPARE(end(0, false), QStringLiteral("Finished: Resize"));
        QCOMPARE(end(-1, true), QStringLiteral("Stopped: Resize"));
        QCOMPARE(end(3, false),
                 QStringLiteral("Shortcut failed: Resize. Run it in a terminal to see why."));
        QCOMPARE(f.fake.shortcuts.started, QStringList(3, QStringLiteral("run Resize")));
        QCOMPARE(f.fake.shortcuts.stops, 1);
    }

    void shortcutsFolderIsCreatedAndOpened() {
        ToolsFixture f;
        f.tools.shortcuts()->openFolder();
        QCOMPARE(f.fake.applications.opened, QStringList(QStringLiteral("file:///shortcuts")));
        QCOMPARE(f.fake.shortcuts.started, QStringList(QStringLiteral("list")));
        f.fake.shortcuts.folderError = QStringLiteral("It cannot be made.");
        f.tools.shortcuts()->openFolder();
        QCOMPARE(f.tools.message(), QStringLiteral("It cannot be made."));
    }
};

static const RegisteredTest<ProductivityTest> registeredProductivityTest;

} // namespace perchly

#include "ProductivityTest.moc"
