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
    void runsTheLanguage_data();
    void runsTheLanguage();
    void scriptsReachNothingElse_data();
    void scriptsReachNothingElse();
    void aHostileScriptEndsSoon_data();
    void aHostileScriptEndsSoon();
    void nothingGetsOutOfAPlayerScript_data();
    void nothingGetsOutOfAPlayerScript();
    void otherArgumentsAreWrongUsage();
    void aFrozenBusEndsTheReading();
    void noBusFailsTheReading();
};

void ScriptSafetyTest::runsTheLanguage_data() {
    QTest::addColumn<QByteArray>("output");
    const auto row = [](const char *script, const char *output) {
        QTest::newRow(script) << QByteArray(output);
    };
    row("let a = 1; const b = 2; a + b", "3\n");
    row("'let x' + \"; let y\" // let z", "let x; let y\n");
    row("var outlet = {let: 1}; outlet.let", "1\n");
    row("function run() { return 'ran'; } 1", "ran\n");
    row("'😀'.length + ' ' + '😀'.charCodeAt(0).toString(16)", "2 d83d\n");
    row("JSON.stringify({a: '😀\\u0007', b: null, c: NaN})", R"({"a":"😀\u0007","b":null,"c":null})"
                                                            "\n");
    row("'\\ud83d'", "\xEF\xBF\xBD\n");
    row("throw Error('no')", "failed");
    row("function (", "failed");
}

void ScriptSafetyTest::runsTheLanguage() {
    QTEST(evaluated(QTest::currentDataTag()), "output");
}

void ScriptSafetyTest::scriptsReachNothingElse_data() {
    QTest::addColumn<QByteArray>("output");
    const auto row = [](const char *script, const char *output) {
        QTest::newRow(script) << QByteArray(output);
    };
    row("[typeof native, typeof Duktape, typeof require, typeof print, typeof load].join()",
        "undefined,undefined,undefined,undefined,undefined\n");
    row("ObjC.import('AppKit')", "failed");
    row("ObjC.bindFunction('system', ['int', ['string']])", "failed");
    row("ObjC.bindFunction('constructor', [])", "failed");
    row("$.NSFileManager.defaultManager", "failed");
    row("$.NSClassFromString('NSTask')", "null\n");
    row("$.NSBundle.bundleWithPath('/System/Library/Frameworks/AppKit.framework/').load",
        "false\n");
    row("$.NSBundle.bundleWithPath = null; typeof $.NSBundle.bundleWithPath", "function\n");
    row("$.NSRunLoop.currentRunLoop.runUntilDate(1e9); 'at once'", "at once\n");
}

void ScriptSafetyTest::scriptsReachNothingElse() {
    QTEST(evaluated(QTest::currentDataTag()), "output");
}

void ScriptSafetyTest::aHostileScriptEndsSoon_data() {
    QTest::addColumn<QByteArray>("script");
    const auto row = [](const char *name, const char *script) {
        QTest::newRow(name) << QByteArray(script);
    };
    row("a loop", "while (true) {}");
    row("all the memory",
        "var all = []; while (true) all.push(new Array(1e6).join('x') + all.length)");
    row("endless recursion", "function run() { return run() + run(); }");
    row("a slow pattern", "/(a+)+$/.test(Array(40).join('a') + 'b')");
}

void ScriptSafetyTest::aHostileScriptEndsSoon() {
    QFETCH(const QByteArray, script);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(evaluated(script), QByteArray("failed"));
    QVERIFY(timer.elapsed() < 4700);
}

void ScriptSafetyTest::nothingGetsOutOfAPlayerScript_data() {
    QTest::addColumn<QString>("player");
    QTest::addColumn<QString>("word");
    const auto row = [](const char *name, const QString &player, const QString &word) {
        QTest::newRow(name) << player << word;
    };
    const QString spotify = QStringLiteral("com.spotify.client");
    const QString next = QStringLiteral("next track");
    row("a command in the player's place",
        QStringLiteral("x\" & do shell script \"touch /tmp/perchly-owned"), next);
    row("a whole script in the player's place",
        spotify + QStringLiteral("\"\nnext track\nreturn player state as string\nend tell\ntell "
                                 "application id \"com.spotify.client"),
        next);
    row("two commands", spotify, QStringLiteral("next track\nnext track"));
    row("a command of the shell", spotify, QStringLiteral("do shell script \"true\""));
    row("another player", QStringLiteral("com.apple.Finder"), next);
    row("a space too many", spotify, QStringLiteral("next track "));
    row("another letter case", QStringLiteral("COM.SPOTIFY.CLIENT"), next);
    row("no command", spotify, QString());
}

void ScriptSafetyTest::nothingGetsOutOfAPlayerScript() {
    QFETCH(const QString, player);
    QFETCH(const QString, word);
    PlayerProcess spotify("spotify");
    QVERIFY(!runCompanion({QStringLiteral("-e"), playerScript(player, word)}));
    QCOMPARE(spotify.commands(), QStringList());
}

void ScriptSafetyTest::otherArgumentsAreWrongUsage() {
    QVERIFY(!runCompanion({}));
    QVERIFY(!runCompanion({QStringLiteral("-l"), QStringLiteral("AppleScript"),
                           QStringLiteral("-e"), QStringLiteral("1")}));
    QVERIFY(!runCompanion({QStringLiteral("-e"), QStringLiteral("1")}));
    QVERIFY(!runCompanion({QStringLiteral("/etc/passwd")}));
}

void ScriptSafetyTest::aFrozenBusEndsTheReading() {
    const auto bus = pid_t(qEnvironmentVariableIntValue("PERCHLY_TEST_BUS_PID"));
    QVERIFY(bus > 0);
    QCOMPARE(kill(bus, SIGSTOP), 0);
    const auto thaw = qScopeGuard([bus] { kill(bus, SIGCONT); });
    QElapsedTimer timer;
    timer.start();
    QVERIFY(readSession().isUndefined());
    QVERIFY(timer.elapsed() < 4700);
}

void ScriptSafetyTest::noBusFailsTheReading() {
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/at/all");
    const auto restore = qScopeGuard([&] { qputenv("DBUS_SESSION_BUS_ADDRESS", address); });
    QVERIFY(readSession().isUndefined());
    QCOMPARE(runJavaScript(*sendScript(MediaPlaybackCommand::Next, {})), QByteArray("false\n"));
}

QTEST_GUILESS_MAIN(ScriptSafetyTest)
#include "ScriptSafetyTest.moc"
