#include "JsonPreferences.h"

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace perchly;

class PreferencesKillTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void holdsEveryAcknowledgedValueWhenKilledAtAnyMoment() {
        constexpr int kills = 320;
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("perchly/preferences.json"));
        qint64 written = 0;
        for (int kill = 0; kill < kills; ++kill) {
            QProcess writer;
            writer.start(QStringLiteral(PREFERENCES_WRITER), {path, QString::number(written + 1)});
            QVERIFY(writer.waitForReadyRead());
            const auto delay = std::chrono::microseconds(QRandomGenerator::global()->bounded(4000));
            const auto end = std::chrono::steady_clock::now() + delay;
            while (std::chrono::steady_clock::now() < end) {
            }
            writer.kill();
            QVERIFY(writer.waitForFinished());
            QCOMPARE(writer.exitStatus(), QProcess::CrashExit);
            QCOMPARE(writer.readAllStandardError(), QByteArray());
            const QList<QByteArray> lines = writer.readAllStandardOutput().trimmed().split('\n');
            const qint64 acknowledged = lines.last().toLongLong();
            QVERIFY(acknowledged > written);

            // A set that was under way may have arrived or not.
            const JsonPreferences preferences(path);
            const auto holds = [acknowledged](qint64 value) {
                return value == acknowledged || value == acknowledged + 1;
            };
            QVERIFY(holds(preferences.wholeNumber(QStringLiteral("number")).value_or(-1)));
            QVERIFY(holds(
                preferences.string(QStringLiteral("string")).value_or(QString()).toLongLong()));
            const QByteArray data = preferences.data(QStringLiteral("data")).value_or(QByteArray());
            QVERIFY(holds(data.split(' ').first().toLongLong()));
            QCOMPARE(data.split(' ').last().size(), 20000);
            written = acknowledged + 1;
        }
        // Starting swept what the killed ones left.
        auto names = QDir(folder.filePath(QStringLiteral("perchly")))
                         .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        names.removeOne(QStringLiteral("preferences.json.bak"));
        QCOMPARE(names, QStringList{QStringLiteral("preferences.json")});
        qInfo("%d kills, %lld acknowledged rounds", kills, static_cast<long long>(written));
    }
};

QTEST_GUILESS_MAIN(PreferencesKillTest)
#include "PreferencesKillTest.moc"
