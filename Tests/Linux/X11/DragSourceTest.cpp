#include "DragSource.h"
#include "XClient.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace perchly;

class DragSourceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        m_target.start(QStringLiteral(DROP_TARGET));
        QVERIFY(m_target.waitForStarted());
    }

    void cleanupTestCase() {
        m_target.kill();
        m_target.waitForFinished();
    }

    void init() {
        QQmlComponent component(&m_engine);
        component.setData("import QtQuick\n"
                          "import Perchly.Look\n"
                          "Window {\n"
                          "  id: root; x: 60; y: 60; width: 300; height: 200; visible: true\n"
                          "  flags: Qt.FramelessWindowHint\n"
                          "  Flickable {\n"
                          "    objectName: 'list'; anchors.fill: parent; contentHeight: 900\n"
                          "    DragSource { width: 300; height: 100; label: 'A label' }\n"
                          "  }\n"
                          "}\n",
                          QUrl());
        m_window.reset(qobject_cast<QQuickWindow *>(component.create()));
        QVERIFY2(m_window, qPrintable(component.errorString()));
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        QTest::qWait(50);
    }

    void cleanup() { m_window.reset(); }

    void dropSucceedsAfterTheSourceIsDestroyed() {
        const QStringList urls{QStringLiteral("file:///tmp/a%20%25%0A%23%C3%A4%D7%90.txt"),
                               QStringLiteral("https://example.org/%C3%A4?b=1#c")};
        const QString text = QStringLiteral("/tmp/a %\n#äא.txt\nhttps://example.org/%C3%A4?b=1#c");
        offer(QUrl::fromStringList(urls));
        connect(source(), &DragSource::draggingChanged, m_window.get(),
                [this] { QTimer::singleShot(100, source(), [this] { delete source(); }); });
        dragOntoTarget();
        QVERIFY(!source());
        QCOMPARE(m_window->findChild<QQuickItem *>(QStringLiteral("list"))->property("contentY"),
                 QVariant(0.0));
        const QJsonObject drop = QJsonDocument::fromJson(dropped()).object();
        QCOMPARE(drop[QLatin1StringView("urls")].toArray(), QJsonArray::fromStringList(urls));
        QCOMPARE(drop[QLatin1StringView("text")].toString(), text);
        QVERIFY(drop[QLatin1StringView("may copy")].toBool());
        QVERIFY(!drop[QLatin1StringView("may move")].toBool());
    }

    void earlyReleaseCancelsTheDrag() {
        offer({QUrl(QStringLiteral("https://example.org/slip"))});
        const QSignalSpy dragged(source(), &DragSource::draggingChanged);
        const QPoint start = m_window->position() + QPoint(100, 60);
        const XClient user; // its release comes before this program reads any event
        user.movePointer(start);
        user.pressButton();
        user.movePointer(start + QPoint(0, 40));
        user.releaseButton();
        QTRY_COMPARE(dragged.count(), 2); // a drag started after the release would not end
    }

private:
    /// The line of JSON that the target prints for the drop.
    QByteArray dropped() {
        QByteArray line;
        const auto isDropped = [&] {
            while (m_target.canReadLine() && !line.startsWith('{')) {
                line = m_target.readLine();
            }
            return line.startsWith('{');
        };
        return QTest::qWaitFor(isDropped) ? line : QByteArray();
    }

    void dragOntoTarget() {
        const QPoint start = m_window->position() + QPoint(100, 60);
        const XClient user;
        user.movePointer(start);
        user.pressButton();
        QList<QPoint> path{start + QPoint(0, 20), start + QPoint(0, 40), QPoint(780, 590),
                           QPoint(790, 595),      QPoint(800, 600),      QPoint(800, 600)};
        QTimer timer; // a drag runs its own event loop
        timer.callOnTimeout([&] {
            if (path.isEmpty()) {
                user.releaseButton();
                timer.stop();
            } else {
                user.movePointer(path.takeFirst());
            }
        });
        timer.start(100);
        QTRY_VERIFY(!timer.isActive());
    }

    DragSource *source() const { return m_window->findChild<DragSource *>(); }
    void offer(const QList<QUrl> &urls) {
        source()->setProperty("urls", QVariant::fromValue(urls));
    }

    QProcess m_target;
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
};

QTEST_MAIN(DragSourceTest)
#include "DragSourceTest.moc"
