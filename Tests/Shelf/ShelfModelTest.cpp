#include "Announcements.h"
#include "FocusFixture.h"
#include "TestRegistry.h"

#include <QTest>

namespace perchly {

namespace {

using Setter = std::function<void(ShelfModel &)>;

} // namespace

class ShelfModelTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// Also when it is the value that the field had: views may rely on it.
    void everySetterAnnouncesItsFieldAlone_data() {
        QTest::addColumn<QString>("property");
        QTest::addColumn<Setter>("set");
        QTest::addColumn<QVariant>("expected");
        const auto row = [](const char *property, const Setter &set, const QVariant &expected) {
            QTest::newRow(property) << QString::fromLatin1(property) << set << expected;
        };
        const QString text = QStringLiteral("Ünïcode ♫");
        row(
            "expanded", [](auto &model) { model.setExpanded(true); }, true);
        row(
            "dragging", [](auto &model) { model.setDragging(true); }, true);
        row(
            "dockEdge", [](auto &model) { model.setDockEdge(ShelfEdge::Right); },
            QStringLiteral("right"));
        row(
            "quietFocus", [](auto &model) { model.setQuietFocus(true); }, true);
        row(
            "compactWidth", [](auto &model) { model.setCompactWidth(472); }, 472.0);
        row(
            "compactHeight", [](auto &model) { model.setCompactHeight(38); }, 38.0);
        row(
            "hardwareNotchWidth", [](auto &model) { model.setHardwareNotchWidth(192); }, 192.0);
        row(
            "left", [](auto &model) { model.setLeft(Widget::Notes); },
            QStringLiteral("Quick note"));
        row(
            "right", [](auto &model) { model.setRight(Widget::Clock); }, QStringLiteral("Clock"));
        row(
            "activity", [text](auto &model) { model.setActivity(text); }, text);
        row(
            "playing", [](auto &model) { model.setPlaying(true); }, true);
        row(
            "artist", [text](auto &model) { model.setArtist(text); }, text);
        row(
            "musicActive", [](auto &model) { model.setMusicActive(true); }, true);
        row(
            "musicTitle", [text](auto &model) { model.setMusicTitle(text); }, text);
        row(
            "musicArtist", [text](auto &model) { model.setMusicArtist(text); }, text);
        row(
            "controlError", [text](auto &model) { model.setControlError(text); }, text);
        row(
            "controlling", [](auto &model) { model.setControlling(true); }, true);
        row(
            "mediaSource", [text](auto &model) { model.setMediaSource(text); }, text);
        row(
            "systemMedia", [](auto &model) { model.setSystemMedia(true); }, true);
        row(
            "mediaIsBrowser", [](auto &model) { model.setMediaIsBrowser(true); }, true);
        row(
            "mediaCanSeek", [](auto &model) { model.setMediaCanSeek(true); }, true);
    }

    void everySetterAnnouncesItsFieldAlone() {
        QFETCH(QString, property);
        QFETCH(Setter, set);
        QFETCH(QVariant, expected);
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        const QByteArray name = property.toLatin1();
        QVERIFY(model.property(name.constData()) != expected);
        Announcements announcements(model);
        set(model);
        const QStringList announced{property + QLatin1StringView("Changed")};
        QCOMPARE(announcements.take(), announced);
        QCOMPARE(model.property(name.constData()), expected);
        set(model);
        QCOMPARE(announcements.take(), announced);
    }

    void theChooserAndThePlayerAreNotAnnounced() {
        FocusFixture fixture;
        ShelfModel &model = fixture.start();
        Announcements announcements(model);
        model.setChoosingWidget(true);
        model.setPlayerID(QStringLiteral("com.spotify.client"));
        QCOMPARE(announcements.take(), QStringList());
        QVERIFY(model.choosingWidget());
        QCOMPARE(model.playerID(), QStringLiteral("com.spotify.client"));
    }

    void anUntouchedModelSaysSo() {
        FocusFixture fixture;
        const ShelfModel &model = fixture.start();
        QCOMPARE(model.compactWidth(), 190.0);
        QCOMPARE(model.compactHeight(), 34.0);
        QCOMPARE(model.leftTitle(), QStringLiteral("Clock"));
        QCOMPARE(model.rightTitle(), QStringLiteral("Focus timer"));
        QCOMPARE(model.musicTitle(), QStringLiteral("Music"));
        QCOMPARE(model.mediaSource(), QStringLiteral("Apple Music"));
        QCOMPARE(model.playerID(), QStringLiteral("com.apple.Music"));
        QVERIFY(model.controlError().isNull());
        QVERIFY(!model.artist().isNull() && model.artist().isEmpty());
        QVERIFY(!model.musicArtist().isNull() && model.musicArtist().isEmpty());
    }

    void widgetsAreStoredByTheirTitles() {
        const QStringList titles{QStringLiteral("Clock"), QStringLiteral("Focus timer"),
                                 QStringLiteral("Music"), QStringLiteral("Quick note"),
                                 QStringLiteral("Calendar")};
        for (qsizetype index = 0; index < titles.size(); ++index) {
            const Widget widget = allWidgets.at(size_t(index));
            QCOMPARE(widgetTitle(widget), titles[index]);
            QVERIFY(widgetFromTitle(titles[index]) == widget);
        }
        for (const QStringView other : {u"", u"clock", u"Timer", u"Quick note ", u"notes"}) {
            QVERIFY2(!widgetFromTitle(other), qPrintable(other.toString()));
        }
    }
};

static const RegisteredTest<ShelfModelTest> registered;

} // namespace perchly

#include "ShelfModelTest.moc"
