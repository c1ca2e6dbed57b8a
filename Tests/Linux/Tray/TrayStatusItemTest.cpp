#include "TrayStatusItem.h"
#include "PanelService.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QPixmap>
#include <QTest>

using namespace perchly;

namespace {

/// One line of the menu as the panel sees it.
struct MenuLine {
    int identifier = 0;
    QString label;
    QStringList shortcut;
};

class TrayClient {
public:
    explicit TrayClient(QString item)
        : m_item(std::move(item)) {}

    QVariant property(const QString &name) {
        return call(QStringLiteral("/StatusNotifierItem"),
                    QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                    {QStringLiteral("org.kde.StatusNotifierItem"), name})
            .value(0)
            .value<QDBusVariant>()
            .variant();
    }

    QList<MenuLine> menu() {
        const QString path = property(QStringLiteral("Menu")).value<QDBusObjectPath>().path();
        const QVariantList reply = call(path, QStringLiteral("com.canonical.dbusmenu"),
                                        QStringLiteral("GetLayout"), {0, -1, QStringList()});
        QList<MenuLine> lines;
        if (reply.size() == 2) {
            const auto layout = reply.at(1).value<QDBusArgument>();
            int identifier = 0;
            QVariantMap properties;
            QVariantList children;
            layout.beginStructure();
            layout >> identifier >> properties >> children;
            layout.endStructure();
            for (const QVariant &child : children) {
                lines.append(lineFrom(child));
            }
        }
        return lines;
    }

    void click(const MenuLine &line) {
        call(property(QStringLiteral("Menu")).value<QDBusObjectPath>().path(),
             QStringLiteral("com.canonical.dbusmenu"), QStringLiteral("Event"),
             {line.identifier, QStringLiteral("clicked"),
              QVariant::fromValue(QDBusVariant(QString())), 0U});
    }

private:
    static MenuLine lineFrom(const QVariant &child) {
        MenuLine line;
        QVariantMap properties;
        QVariantList children;
        const auto argument = child.value<QDBusArgument>();
        argument.beginStructure();
        argument >> line.identifier >> properties >> children;
        argument.endStructure();
        line.label = properties.value(QStringLiteral("label")).toString();
        const auto shortcut = properties.value(QStringLiteral("shortcut")).value<QDBusArgument>();
        if (shortcut.currentType() == QDBusArgument::ArrayType) {
            QList<QStringList> chords;
            shortcut >> chords;
            line.shortcut = chords.value(0);
        }
        return line;
    }

    /// Waits with the event loop, since the item lives in this process.
    QVariantList call(const QString &path, const QString &interface, const QString &method,
                      const QVariantList &arguments) {
        QDBusMessage message = QDBusMessage::createMethodCall(m_item, path, interface, method);
        message.setArguments(arguments);
        QDBusPendingCallWatcher watcher(m_bus.asyncCall(message));
        if (!QTest::qWaitFor([&] { return watcher.isFinished(); })) {
            return {};
        }
        return watcher.reply().arguments();
    }

    QString m_item;
    QDBusConnection m_bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("tray client"));
};

} // namespace

class TrayStatusItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void appearsWithItsMenuWhenAPanelComesLater();
};

void TrayStatusItemTest::appearsWithItsMenuWhenAPanelComesLater() {
    const QStringList titles{QStringLiteral("Show shelf"), QStringLiteral("Volume Mixer…"),
                             QStringLiteral("Search…"),    QStringLiteral("Workspace…"),
                             QStringLiteral("Settings…"),  QStringLiteral("Quit Perchly")};
    const QMap<QString, QKeySequence> shortcuts{
        {titles.at(4), QKeySequence(QStringLiteral("Ctrl+,"))},
        {titles.at(5), QKeySequence(QStringLiteral("Ctrl+Q"))}};
    QStringList chosen;
    QList<StatusMenuEntry> entries;
    for (const QString &title : titles) {
        entries.append({title, [&chosen, title] { chosen.append(title); }, shortcuts.value(title)});
    }
    QPixmap pixmap(22, 22);
    pixmap.fill(Qt::black);

    PanelService service;
    TrayStatusItem item(QDBusConnection::sessionBus());
    item.show(QIcon(pixmap), QStringLiteral("Perchly"), entries);
    QTest::qWait(50);
    service.appear();
    QTest::qWait(50);
    QCOMPARE(service.items(), QStringList()); // no panel shows it yet
    service.setPanel();
    QTRY_COMPARE(service.items().size(), 1);

    TrayClient client(service.items().first());
    QCOMPARE(client.property(QStringLiteral("Status")).toString(), QStringLiteral("Active"));
    const QList<MenuLine> lines = client.menu();
    QStringList labels;
    for (const MenuLine &line : lines) {
        labels.append(line.label);
    }
    QCOMPARE(labels, titles);
    QCOMPARE(lines.at(4).shortcut, QStringList({QStringLiteral("Control"), QStringLiteral(",")}));
    QCOMPARE(lines.at(5).shortcut, QStringList({QStringLiteral("Control"), QStringLiteral("Q")}));
    client.click(lines.at(2));
    QTRY_COMPARE(chosen, QStringList{titles.at(2)});

    // The panel starts anew.
    service.disappear();
    service.appear();
    QTRY_COMPARE(service.items().size(), 2);
    QCOMPARE(TrayClient(service.items().last()).menu().size(), 6);

    item.show(QIcon(pixmap), QStringLiteral("Perchly"), entries.first(2));
    QTRY_COMPARE(service.items().size(), 3);
    QCOMPARE(TrayClient(service.items().last()).menu().size(), 2);
}

QTEST_MAIN(TrayStatusItemTest)
#include "TrayStatusItemTest.moc"
