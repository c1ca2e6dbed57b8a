#include "JsonPreferences.h"
#include "FullDisk.h"
#include "PreferenceKeys.h"
#include "TestFiles.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace perchly;

namespace {

const QString key = QStringLiteral("key");
const QString other = QStringLiteral("other");

} // namespace

class JsonPreferencesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        m_folder.emplace();
        // QString::arg() must not replace a percent sign in the path.
        m_path = m_folder->filePath(QStringLiteral("%1 %2/perchly/preferences.json"));
        m_backup = m_path + QStringLiteral(".bak");
    }

    void valuesKeepTheirTypesInAPrivateFile() {
        const QString unicode = QStringLiteral("ü \"\\\n\u2028 日本 🎛 ") + QChar(0);
        const QList<PreferenceValue> values{false,   0.1 + 0.2,           9007199254740991.0,
                                            unicode, QStringLiteral("1"), unicode.toUtf8()};
        for (const PreferenceValue &value : values) {
            JsonPreferences(m_path).setValue(key, value);
            QVERIFY(JsonPreferences(m_path).value(key) == value);
        }
        struct stat status = {};
        for (const QString &path : {m_path, m_backup}) {
            QCOMPARE(::stat(qPrintable(path), &status), 0);
            QCOMPARE(status.st_mode & 0777U, 0600U);
        }
    }

    /// So a program killed after a set keeps its values.
    void changeIsSavedBeforeItIsAnnounced() {
        JsonPreferences preferences(m_path);
        QStringList announced;
        connect(&preferences, &Preferences::changed, this, [&](const QString &name) {
            const JsonPreferences again(m_path);
            QCOMPARE(again.value(key), preferences.value(key));
            QCOMPARE(again.value(other), preferences.value(other));
            announced.append(name);
        });
        preferences.setNumber(key, 1);
        preferences.setNumber(key, 1);
        preferences.removeValue(other);
        preferences.removeValue(key);
        preferences.setValues({{other, 2.0}, {key, true}});
        QCOMPARE(announced, QStringList({key, key, key, other, key}));
    }

    void damagedFileOrStaleBackupIsSetAside() {
        int number = 0;
        for (const char *bytes : {"{\"key\": tr", "", "[1, 2]"}) {
            writeFile(m_path, bytes);
            QFile::remove(m_backup);
            JsonPreferences preferences(m_path);
            QVERIFY(!preferences.isComplete());
            QCOMPARE(preferences.value(key), std::nullopt);
            preferences.setBoolean(key, true);
            QCOMPARE(JsonPreferences(m_path).boolean(key), true);
            QCOMPARE(readFile(m_path + QStringLiteral(".kept-") + QString::number(++number)),
                     QByteArray(bytes));
        }
        const QByteArray last = readFile(m_backup);
        QVERIFY(QFile::remove(m_path));
        JsonPreferences preferences(m_path);
        QCOMPARE(preferences.value(key), std::nullopt);
        preferences.setBoolean(other, true);
        QCOMPARE(readFile(m_backup + QStringLiteral(".kept-1")), last);
    }

    void backupReplacesATruncatedFile() {
        JsonPreferences(m_path).setNumber(key, 49); // the destructor waits for the backup
        QVERIFY(JsonPreferences(m_path).isComplete());
        const QByteArray whole = readFile(m_path);
        QCOMPARE(readFile(m_backup), whole);
        writeFile(m_path, whole.first(whole.size() / 2));
        QCOMPARE(JsonPreferences(m_path).number(key), 49.0);
        QCOMPARE(readFile(m_path), whole);
    }

    void longValuesAreSavedInTheirOwnFiles() {
        writeFile(m_path, "{\"quickNote\": \"of an earlier version\"}");
        JsonPreferences preferences(m_path);
        QCOMPARE(preferences.string(keys::quickNote), QStringLiteral("of an earlier version"));
        const QString note(100'000, u'x');
        preferences.setString(keys::quickNote, note);
        QVERIFY(QFileInfo(m_path).size() < 100);
        QCOMPARE(JsonPreferences(m_path).string(keys::quickNote), note);
        preferences.removeValue(keys::quickNote);
        QCOMPARE(JsonPreferences(m_path).value(keys::quickNote), std::nullopt);
    }

    void nextSetRetriesAFailedWrite() {
        JsonPreferences(m_path).setNumber(key, 1);
        auto preferences = std::make_unique<JsonPreferences>(m_path);
        QSignalSpy failed(preferences.get(), &Preferences::failed);
        const auto failToSet = [&](double number) {
            const auto fullDisk = fillDisk();
            preferences->setNumber(key, number);
            preferences->setNumber(other, number);
        };
        failToSet(2);
        QTRY_COMPARE(failed.size(), 1);
        QCOMPARE(JsonPreferences(m_path).number(key), 1.0);
        QCOMPARE(preferences->number(key), 2.0);
        preferences->setNumber(other, 2); // the value in memory, but not in the file
        QCOMPARE(JsonPreferences(m_path).number(key), 2.0);
        failToSet(3);
        preferences.reset();
        QCOMPARE(JsonPreferences(m_path).number(key), 3.0);
    }

    void writesThroughASymbolicLink() {
        const QString real = m_folder->filePath(QStringLiteral("dotfiles/perchly.json"));
        writeFile(real, "{\"other\": 1}");
        QDir().mkpath(QFileInfo(m_path).path());
        QVERIFY(QFile::link(real, m_path));
        JsonPreferences(m_path).setBoolean(key, true);
        QVERIFY(QFileInfo(m_path).isSymLink());
        QCOMPARE(JsonPreferences(real).number(other), 1.0);
        QCOMPARE(JsonPreferences(real).boolean(key), true);
    }

private:
    std::optional<QTemporaryDir> m_folder;
    QString m_path;
    QString m_backup;
};

QTEST_GUILESS_MAIN(JsonPreferencesTest)
#include "JsonPreferencesTest.moc"
