#include "TrayStatusItem.h"

#include <QApplication>
#include <QPixmap>
#include <QProcess>
#include <QTest>
#include <QWidget>

using namespace perchly;

/// With a real program that holds the display's tray selection.
class TraySelectionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isDockedWhenATrayComesLater();
};

void TraySelectionTest::isDockedWhenATrayComesLater() {
    QPixmap pixmap(22, 22);
    pixmap.fill(Qt::red);
    TrayStatusItem item{QDBusConnection(QString())};
    item.show(QIcon(pixmap), QStringLiteral("Perchly"), {{QStringLiteral("Show shelf"), {}, {}}});
    QTest::qWait(50);
    const auto isDocked = [] {
        const auto widgets = QApplication::topLevelWidgets();
        return std::ranges::any_of(widgets, [](const QWidget *widget) {
            return widget->isVisible() && widget->inherits("QSystemTrayIconSys");
        });
    };
    QVERIFY(!isDocked());

    QProcess tray;
    tray.start(QStringLiteral("trayer"), {QStringLiteral("--edge"), QStringLiteral("top")});
    QVERIFY(tray.waitForStarted());
    QTRY_VERIFY(isDocked());
    const QByteArray screenshot = qgetenv("PERCHLY_TEST_SCREENSHOT");
    if (!screenshot.isEmpty()) {
        QTest::qWait(500);
        QProcess::execute(QStringLiteral("import"),
                          {QStringLiteral("-window"), QStringLiteral("root"),
                           QString::fromLocal8Bit(screenshot)});
    }
    tray.terminate();
    QVERIFY(tray.waitForFinished());
}

QTEST_MAIN(TraySelectionTest)
#include "TraySelectionTest.moc"
