#include "RouteKeeper.h"

#include <QFile>
#include <QPointer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <csignal>

using namespace perchly;

class RouteKeeperTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aCompanionThatWasKilledIsReplaced() {
        const QTemporaryDir folder;
        const QString heard = folder.filePath(QStringLiteral("heard"));
        QFile program(folder.filePath(QStringLiteral("companion")));
        QVERIFY(program.open(QIODevice::WriteOnly));
        program.write("#!/bin/sh\nexec cat > '" + heard.toUtf8() + "'\n");
        program.close();
        QVERIFY(program.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
        const auto hears = [&heard](QList<QByteArray> expected) {
            QFile file(heard);
            QList<QByteArray> records =
                file.open(QIODevice::ReadOnly) ? file.readAll().split('\0') : QList<QByteArray>();
            records.removeAll(QByteArray());
            std::ranges::sort(records);
            return records == expected;
        };

        RouteKeeper keeper(program.fileName());
        keeper.keep(11, StreamTarget{.type = "Spa:String", .value = "second"});
        keeper.keep(12, std::nullopt);
        QTRY_VERIFY(hears({"+11\tSpa:String\tsecond", "+12"}));
        keeper.forget(12);
        QTRY_VERIFY(hears({"+11\tSpa:String\tsecond", "+12", "-12"}));

        const QPointer<QProcess> companion = keeper.findChild<QProcess *>();
        ::kill(pid_t(companion->processId()), SIGKILL);
        QTRY_VERIFY(!companion);
        keeper.keep(13, std::nullopt);
        QTRY_VERIFY(hears({"+11\tSpa:String\tsecond", "+13"}));
    }

    void withoutItsProgramNothingIsKept() {
        RouteKeeper keeper(QStringLiteral("/nonexistent/companion"));
        for (std::uint32_t node = 1; node < 4; ++node) {
            keeper.keep(node, std::nullopt);
            QTRY_VERIFY(!keeper.findChild<QProcess *>());
        }
        keeper.forget(1);
    }
};

QTEST_GUILESS_MAIN(RouteKeeperTest)
#include "RouteKeeperTest.moc"
