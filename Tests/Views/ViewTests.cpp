#include "AccessibleItem.h"
#include "ApplicationPictures.h"
#include "FakePlatform.h"

#include <QAccessible>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QtQuickTest>

/// Prepares the QML engine for each of the QML test files in this folder.
class Setup : public QObject {
    Q_OBJECT
public Q_SLOTS:
    void applicationAvailable() {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        QAccessible::setActive(true);
        perchly::AccessibleItem::install();
    }
    void qmlEngineAvailable(QQmlEngine *engine) {
        engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
        engine->addImageProvider(QStringLiteral("applications"),
                                 new perchly::ApplicationPictures(m_applications));
    }

private:
    perchly::FakeApplications m_applications;
};

QUICK_TEST_MAIN_WITH_SETUP(views, Setup)

#include "ViewTests.moc"
