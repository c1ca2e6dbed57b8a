#include "MediaScripts.h"
#include "PlayerProcess.h"

#include <QElapsedTimer>
#include <QTest>

#include <csignal>

using namespace perchly;

namespace {

QByteArray evaluated(const char *script) {
    return runJavaScript(QString::fromUtf8(script)).value_or("failed");
}

} // namespace

class ScriptSafetyTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void scriptsReachWhatTheyMayAndNothingElse_data() {
        QTest::addColumn<QByteArray>("output");
        const auto row = [](const char *script, const char *output) {
            QTest::newRow(script) << QByteArray(output);
        };
        row("let a = 1; const b = 2; a + b", "3\n");
        row("'let x' + \"; let y\" // let z", "let x; let y\n");
        row("function run() { return 'ran'; } 1", "ran\n");
        row("JSON.stringify({a: '😀', b: null, c: NaN})", "{\"a\":\"😀\",\"b\":null,\"c\":null}\n");
        row("function (", "failed");
        row("[typeof native, typeof Duktape, typeof require, typeof print, typeof load].join()",
            "undefined,undefined,undefined,undefined,undefined\n");
        row("ObjC.bindFunction('system', ['int', ['string']])", "failed");
        row("$.NSFileManager.defaultManager", "failed");
        row("$.NSClassFromString('NSTask')", "null\n");
        row("$.NSBundle.bundleWithPath = null; typeof $.NSBundle.bundleWithPath", "function\n");
        row("$.NSRunLoop.currentRunLoop.runUntilDate(1e9); 'at once'", "at once\n");
    }

    void scriptsReachWhatTheyMayAndNothingElse() {
        QTEST(evaluated(QTest::currentDataTag()), "output");
    }

    void aHostileScriptEndsSoon() {
        for (const char *script :
             {"while (true) {}", "function run() { return run() + run(); }",
              "var all = []; while (true) all.push(new Array(1e6).join('x') + all.length)",
              "/(a+)+$/.test(Array(40).join('a') + 'b')"}) {
            QElapsedTimer timer;
            timer.start();
            QCOMPARE(evaluated(script), QByteArray("failed"));
            QVERIFY2(timer.elapsed() < 10'000, script);
        }
    }

    void nothingGetsOutOfAPlayerScript() {
        PlayerProcess spotify("spotify");
        const QString client = QStringLiteral("com.spotify.client");
        const QString next = QStringLiteral("next track");
        const QString end =
            QStringLiteral("\"\nnext track\nreturn player state as string\nend tell");
        for (const auto &[player, word] :
             {std::pair(QStringLiteral("x\" & do shell script \"touch /tmp/perchly-owned"), next),
              std::pair(client + end + QStringLiteral("\ntell application id \"") + client, next),
              std::pair(client, QStringLiteral("do shell script \"true\"")),
              std::pair(client.toUpper(), next)}) {
            QVERIFY(!runCompanion({QStringLiteral("-e"), playerScript(player, word)}));
        }
        QCOMPARE(spotify.commands(), QStringList());
    }

    void aFrozenBusEndsTheReading() {
        const auto bus = pid_t(qEnvironmentVariableIntValue("PERCHLY_TEST_BUS_PID"));
        QVERIFY(bus > 0);
        QCOMPARE(kill(bus, SIGSTOP), 0);
        const auto thaw = qScopeGuard([bus] { kill(bus, SIGCONT); });
        QElapsedTimer timer;
        timer.start();
        QVERIFY(readSession().isUndefined());
        QVERIFY(timer.elapsed() < 10'000);
    }

    void noBusFailsTheReading() {
        const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/at/all");
        const auto restore = qScopeGuard([&] { qputenv("DBUS_SESSION_BUS_ADDRESS", address); });
        QVERIFY(readSession().isUndefined());
        QCOMPARE(runJavaScript(*sendScript(MediaPlaybackCommand::Next, {})), QByteArray("false\n"));
    }
};

QTEST_GUILESS_MAIN(ScriptSafetyTest)
#include "ScriptSafetyTest.moc"
