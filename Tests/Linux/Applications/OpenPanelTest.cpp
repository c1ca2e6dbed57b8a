#include "QtOpenPanel.h"

#include <QApplication>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QFileDialog>
#include <QTest>

using namespace perchly;

namespace {

/// A portal with a file dialog in which the test chooses.
class Portal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileChooser")
public:
    Portal() {
        QDBusConnection bus = m_bus.connection();
        bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                           QDBusConnection::ExportAllSlots);
        bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    void respond(uint response, const QStringList &uris) {
        auto signal = QDBusMessage::createSignal(m_request.path(),
                                                 QStringLiteral("org.freedesktop.portal.Request"),
                                                 QStringLiteral("Response"));
        m_bus.connection().send(signal << response << QVariantMap{{QStringLiteral("uris"), uris}});
        m_request = QDBusObjectPath();
    }
    [[nodiscard]] bool isAsked() const { return !m_request.path().isEmpty(); }

    QVariantMap asked;

public Q_SLOTS:
    QDBusObjectPath OpenFile(const QString &, const QString &, const QVariantMap &options) {
        asked = options;
        const QString sender = message().service().mid(1).replace(u'.', u'_');
        m_request =
            QDBusObjectPath(QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                                .arg(sender, options[QStringLiteral("handle_token")].toString()));
        return m_request;
    }

private:
    SessionBus m_bus{QStringLiteral("portal")};
    QDBusObjectPath m_request;
};

QFileDialog *qtDialog() {
    return qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
}

} // namespace

class OpenPanelTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void portalIsUsedIfItShowsADialog() {
        const QString uri = QStringLiteral("file:///some%20where/b%C3%BC");
        QtOpenPanel panel(std::make_shared<SessionBus>(QStringLiteral("panel")));
        std::optional<QList<QUrl>> chosen;
        const auto choose = [&chosen](const QList<QUrl> &urls) { chosen = urls; };
        const OpenPanel::Request request{.title = QStringLiteral("Choose"),
                                         .confirmLabel = {},
                                         .folder = QStringLiteral("/usr"),
                                         .choice = OpenPanel::Choice::Applications};
        {
            Portal portal;
            for (const uint response : {0U, 1U, 2U}) { // GTK's dialog answers 2 after Escape
                const QStringList answer = response == 0 ? QStringList{uri} : QStringList();
                chosen.reset();
                const Task task = panel.ask(request, choose);
                QTRY_VERIFY(portal.isAsked());
                QCOMPARE(portal.asked[QStringLiteral("current_folder")], QByteArray("/usr\0", 5));
                portal.respond(response, answer);
                QTRY_COMPARE(chosen, QUrl::fromStringList(answer));
                QVERIFY(qtDialog() == nullptr);
            }
        }
        const Task task = panel.ask(request, choose); // without a portal
        QTRY_VERIFY(qtDialog() != nullptr);
        qtDialog()->reject();
        QVERIFY(chosen->isEmpty());
    }
};

QTEST_MAIN(OpenPanelTest)
#include "OpenPanelTest.moc"
