#include "JsonPreferences.h"
#include "FullDisk.h"
#include "PreferenceKeys.h"
#include "TestFiles.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <algorithm>
#include <fcntl.h>
#include <limits>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

using namespace perchly;

namespace {

const QString key = QStringLiteral("key");
const QString other = QStringLiteral("other");

/// Makes permissions hold for the superuser, too, while it lives.
class Unprivileged {
public:
    Unprivileged() {
        if (m_before == 0) {
            (void)::seteuid(65534);
        }
    }
    ~Unprivileged() { (void)::seteuid(m_before); }

private:
    uid_t m_before = ::geteuid();
};

/// What the program writes to standard error while it lives. A pipe, since a full disk takes no
/// file.
class StandardError {
public:
    StandardError() {
        if (::pipe2(m_pipe, O_NONBLOCK | O_CLOEXEC) == 0) {
            ::dup2(m_pipe[1], STDERR_FILENO);
        }
    }
    ~StandardError() {
        ::dup2(m_before, STDERR_FILENO);
        for (const int descriptor : {m_before, m_pipe[0], m_pipe[1]}) {
            ::close(descriptor);
        }
    }
    [[nodiscard]] QByteArray takeText() const {
        QByteArray text(65536, Qt::Uninitialized);
        return text.first(
            std::max(::read(m_pipe[0], text.data(), size_t(text.size())), ssize_t(0)));
    }

private:
    int m_before = ::dup(STDERR_FILENO);
    int m_pipe[2] = {-1, -1};
};

} // namespace

class JsonPreferencesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        m_folder.emplace();
        m_path = m_folder->filePath(QStringLiteral("perchly/preferences.json"));
        m_backup = m_path + QStringLiteral(".bak");
    }

    void keepsEveryValueWithItsTypeInAPrivateFile() {
        const QString unicode = QStringLiteral("ü \"\\\n\u2028 日本 🎛 ") + QChar(0);
        const QList<PreferenceValue> values{
            false,
            0.1 + 0.2,
            9007199254740991.0,
            unicode,
            QStringLiteral("1"),
            unicode.toUtf8(),
            QByteArray("\xff\x00\xc0\x80", 4),
            QByteArray("\xef\xbb\xbf{}"),
        };
        for (const PreferenceValue &value : values) {
            JsonPreferences(m_path).setValue(key, value);
            QVERIFY(JsonPreferences(m_path).value(key) == value);
            QVERIFY(QJsonDocument::fromJson(readFile(m_path)).isObject());
        }
        struct stat status = {};
        for (const QString &path : {m_path, m_backup}) {
            QCOMPARE(::stat(qPrintable(path), &status), 0);
            QCOMPARE(status.st_mode & 0777U, 0600U);
        }
    }

    void keepsForeignValuesInTheFile() {
        const QByteArray foreign =
            R"({"list": [1, {"a": null}], "none": null, "large": 9223372036854775807, "object": )"
            R"({"data": "%", "encoding": "base64"}, "tag": {"data": "x", "encoding": "rot13"}})";
        writeFile(m_path, foreign);
        JsonPreferences preferences(m_path);
        const QJsonObject before = QJsonDocument::fromJson(foreign).object();
        for (const QString &name : before.keys()) {
            QCOMPARE(preferences.value(name).has_value(), name == QStringLiteral("large"));
        }
        preferences.setBoolean(key, true);
        QJsonObject after = QJsonDocument::fromJson(readFile(m_path)).object();
        QCOMPARE(after.take(key), QJsonValue(true));
        QCOMPARE(after, before);
        QVERIFY(readFile(m_path).contains("9223372036854775807"));
    }

    void announcesEverySetAndRemoval() {
        JsonPreferences preferences(m_path);
        QStringList announced;
        connect(&preferences, &Preferences::changed, this, [&](const QString &name) {
            // Whatever was set with it is there, and on the disk, when the first is announced.
            const JsonPreferences again(m_path);
            QCOMPARE(again.value(key), preferences.value(key));
            QCOMPARE(again.value(other), preferences.value(other));
            announced.append(name);
        });
        preferences.setNumber(key, 1);
        const QByteArray bytes = readFile(m_path);
        preferences.setNumber(key, 1);
        preferences.removeValue(other);
        QCOMPARE(announced, QStringList({key, key}));
        QCOMPARE(readFile(m_path), bytes);
        preferences.removeValue(key);
        QCOMPARE(announced, QStringList({key, key, key}));
        QCOMPARE(preferences.value(key), std::nullopt);
        preferences.setValues({{other, 2.0}, {key, true}});
        QCOMPARE(announced.mid(3), QStringList({other, key}));
        // One type is not another, even where JSON values compare alike.
        preferences.setBoolean(key, false);
        preferences.setNumber(key, 0);
        QCOMPARE(JsonPreferences(m_path).number(key), 0.0);
        // A number that is not finite is none.
        preferences.setNumber(key, std::numeric_limits<double>::quiet_NaN());
        QCOMPARE(preferences.number(key), 0.0);
    }

    void setsADamagedFileAside_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("a torn document") << QByteArray("{\"key\": tr");
        QTest::newRow("an empty file") << QByteArray();
        QTest::newRow("another kind of document") << QByteArray("[1, 2]");
        QTest::newRow("endless nesting") << QByteArray(100000, '[');
    }

    void setsADamagedFileAside() {
        QFETCH(const QByteArray, bytes);
        writeFile(m_path, bytes);
        const StandardError standardError;
        JsonPreferences preferences(m_path);
        const QByteArray told = standardError.takeText();
        QVERIFY(told.startsWith("perchly: cannot read the preferences"));
        QVERIFY(!told.contains("cannot write"));
        QCOMPARE(preferences.value(key), std::nullopt);
        preferences.setBoolean(key, true);
        QCOMPARE(JsonPreferences(m_path).boolean(key), true);
        QCOMPARE(readFile(m_path + QStringLiteral(".kept-1")), bytes);
        // The next one does not take its place.
        writeFile(m_path, "torn again");
        const JsonPreferences again(m_path);
        QCOMPARE(readFile(m_path + QStringLiteral(".kept-1")), bytes);
        QCOMPARE(readFile(m_path + QStringLiteral(".kept-2")), QByteArray("torn again"));
    }

    void usesTheBackupWhenTheFileIsTorn() {
        {
            JsonPreferences preferences(m_path);
            for (int number = 0; number < 50; ++number) {
                preferences.setNumber(key, number);
            }
        } // the last generation is on the disk now
        const QByteArray whole = readFile(m_path);
        QCOMPARE(readFile(m_backup), whole);
        writeFile(m_path, whole.first(whole.size() / 2));
        {
            const StandardError standardError;
            const JsonPreferences preferences(m_path);
            QCOMPARE(preferences.number(key), 49.0);
            QVERIFY(standardError.takeText().contains("the last copy"));
        }
        // It stands at its place again, without a set.
        const StandardError standardError;
        QCOMPARE(JsonPreferences(m_path).number(key), 49.0);
        QCOMPARE(standardError.takeText(), QByteArray());
    }

    void startsWithTheDefaultsWhenTheFileWasDeleted() {
        JsonPreferences(m_path).setString(key, QStringLiteral("precious"));
        QVERIFY(QFile::remove(m_path));
        const StandardError standardError;
        JsonPreferences preferences(m_path);
        QCOMPARE(preferences.value(key), std::nullopt);
        preferences.setBoolean(other, true);
        QVERIFY(readFile(m_backup + QStringLiteral(".kept-1")).contains("precious"));
        QVERIFY(standardError.takeText().contains("preferences.json.bak.kept-1"));
    }

    void neverWritesWhatItWouldNotRead() {
        {
            JsonPreferences preferences(m_path);
            QSignalSpy tooLarge(&preferences, &Preferences::tooLarge);
            preferences.setBoolean(key, true);
            preferences.setString(other, QString(70 << 20, u'x'));
            QCOMPARE(tooLarge.size(), 1);
        } // its backup is written, too
        QCOMPARE(JsonPreferences(m_path).boolean(key), true);
    }

    void writesLongValuesOnlyWhenTheyChange() {
        const QString note(100'000, u'x');
        writeFile(m_path, "{\"key\": 1, \"quickNote\": \"" + note.toUtf8() + "\"}");
        JsonPreferences preferences(m_path);
        preferences.setNumber(key, 2);
        QVERIFY(QFileInfo(m_path).size() < 100);
        QCOMPARE(JsonPreferences(m_path).string(keys::quickNote), note);
        const QString ownFile = QFileInfo(m_path).dir().filePath(QStringLiteral("quickNote.json"));
        QVERIFY(QFile::remove(ownFile));
        preferences.setNumber(key, 3);
        QVERIFY(!QFile::exists(ownFile));
    }

    void triesAFailedWriteAgainWithAllValues() {
        JsonPreferences(m_path).setString(key, QStringLiteral("before"));
        const QByteArray before = readFile(m_path);
        JsonPreferences preferences(m_path);
        QSignalSpy failed(&preferences, &Preferences::failed);
        {
            const StandardError standardError;
            const FullDisk fullDisk;
            preferences.setString(key, QStringLiteral("after"));
            preferences.setNumber(other, 1);
            QCOMPARE(standardError.takeText().count("cannot write the preferences"), 1);
        }
        QTRY_COMPARE(failed.size(), 1);
        QCOMPARE(readFile(m_path), before);
        QVERIFY(names().filter(QStringLiteral(".tmp-")).isEmpty());
        QCOMPARE(preferences.string(key), QStringLiteral("after"));
        preferences.setNumber(other, 1); // the same value as in memory, but not as on the disk
        const JsonPreferences again(m_path);
        QCOMPARE(again.string(key), QStringLiteral("after"));
        QCOMPARE(again.number(other), 1.0);
    }

    void triesAFailedWriteAgainByItself() {
        JsonPreferences preferences(m_path);
        const auto failToSet = [&](double number) {
            const StandardError quiet;
            const FullDisk fullDisk;
            preferences.setNumber(key, number);
        };
        failToSet(1);
        QTRY_COMPARE_WITH_TIMEOUT(JsonPreferences(m_path).number(key), 1.0, 10'000);
        failToSet(2);
        QMetaObject::invokeMethod(QCoreApplication::instance(), "aboutToQuit"); // at the latest
        QCOMPARE(JsonPreferences(m_path).number(key), 2.0);
    }

    void neverReplacesADamagedFileThatCannotBeMoved() {
        writeFile(m_path, "precious but torn");
        const QString folder = QFileInfo(m_path).path();
        ::chmod(qPrintable(m_folder->path()), 0711);
        ::chmod(qPrintable(folder), 0555);
        ::chmod(qPrintable(m_path), 0644);
        const StandardError quiet;
        std::optional<Unprivileged> unprivileged(std::in_place);
        JsonPreferences preferences(m_path);
        preferences.setBoolean(key, true);
        unprivileged.reset();
        ::chmod(qPrintable(folder), 0700);
        QCOMPARE(readFile(m_path), QByteArray("precious but torn"));
        preferences.setBoolean(other, true);
        QCOMPARE(readFile(m_path + QStringLiteral(".kept-1")), QByteArray("precious but torn"));
        QCOMPARE(JsonPreferences(m_path).boolean(key), true);
    }

    void writesThroughASymbolicLink() {
        const StandardError quiet;
        const QString real = m_folder->filePath(QStringLiteral("dotfiles/perchly.json"));
        writeFile(real, "{\"other\": 1}");
        QDir().mkpath(QFileInfo(m_path).path());
        QVERIFY(QFile::link(QStringLiteral("../dotfiles/perchly.json"), m_path));
        JsonPreferences(m_path).setBoolean(key, true);
        QCOMPARE(JsonPreferences(real).number(other), 1.0);
        QFile::remove(real); // it may not be there yet
        JsonPreferences(m_path).setBoolean(key, true);
        QVERIFY(QFileInfo(m_path).isSymLink());
        QCOMPARE(JsonPreferences(real).boolean(key), true);
    }

    void sweepsLeftoversOnly() {
        writeFile(m_path, "{}");
        writeFile(m_path + QStringLiteral(".tmp-a1B2c3"), "{");
        writeFile(m_backup + QStringLiteral(".tmp-a1B2c3"), "{");
        writeFile(m_path + QStringLiteral(".tmp-of-the-person"), "mine");
        const JsonPreferences preferences(m_path);
        QCOMPARE(names(), QStringList({QStringLiteral("preferences.json"),
                                       QStringLiteral("preferences.json.tmp-of-the-person")}));
    }

private:
    [[nodiscard]] QStringList names() const {
        return QDir(QFileInfo(m_path).path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    std::optional<QTemporaryDir> m_folder;
    QString m_path;
    QString m_backup;
};

QTEST_GUILESS_MAIN(JsonPreferencesTest)
#include "JsonPreferencesTest.moc"
