#include "JsonPreferences.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <limits>
#include <optional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace perchly;

namespace {

const QString key = QStringLiteral("key");
const QString other = QStringLiteral("other");

QByteArray read(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &path, const QByteArray &bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

/// Lets writing files fail while it lives, as on a full disk.
class FullDisk {
public:
    FullDisk() {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{1, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before = {};
};

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
    void init();
    void keepsEveryValueWithItsType_data();
    void keepsEveryValueWithItsType();
    void readsOnlyTheStoredType();
    void keepsTheFileAndItsFolderPrivate();
    void keepsForeignValuesInTheFile();
    void announcesEverySetAndRemoval();
    void doesNotStoreANumberThatIsNotFinite();
    void setsADamagedFileAside_data();
    void setsADamagedFileAside();
    void neverReplacesWhatItHasSetAside();
    void usesTheBackupWhenTheFileIsTorn();
    void startsWithTheDefaultsWhenTheFileWasDeleted();
    void triesAFailedWriteAgainWithAllValues_data();
    void triesAFailedWriteAgainWithAllValues();
    void neverReplacesADamagedFileThatCannotBeMoved();
    void writesThroughASymbolicLink_data();
    void writesThroughASymbolicLink();
    void sweepsLeftoversOnly();

private:
    [[nodiscard]] QStringList names() const {
        return QDir(QFileInfo(m_path).path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    std::optional<QTemporaryDir> m_folder;
    QString m_path;
    QString m_backup;
};

void JsonPreferencesTest::init() {
    m_folder.emplace();
    m_path = m_folder->filePath(QStringLiteral("perchly/preferences.json"));
    m_backup = m_path + QStringLiteral(".bak");
}

void JsonPreferencesTest::keepsEveryValueWithItsType_data() {
    const QString unicode = QStringLiteral("ü \"\\\n\u2028 日本 🎛 ") + QChar(0);
    QTest::addColumn<PreferenceValue>("value");
    QTest::newRow("a boolean") << PreferenceValue(false);
    QTest::newRow("a number with a fraction") << PreferenceValue(0.1 + 0.2);
    QTest::newRow("a whole number") << PreferenceValue(9007199254740991.0);
    QTest::newRow("the largest number") << PreferenceValue(std::numeric_limits<double>::max());
    QTest::newRow("the smallest number") << PreferenceValue(5e-324);
    QTest::newRow("an empty string") << PreferenceValue(QString());
    QTest::newRow("any text") << PreferenceValue(unicode);
    QTest::newRow("a string that looks like a number") << PreferenceValue(QStringLiteral("1"));
    QTest::newRow("no data") << PreferenceValue(QByteArray());
    QTest::newRow("a document") << PreferenceValue(QByteArray("[{\"name\":\"") + unicode.toUtf8());
    QTest::newRow("data that is no text") << PreferenceValue(QByteArray("\xff\x00\xc0\x80", 4));
    QTest::newRow("data with a byte order mark") << PreferenceValue(QByteArray("\xef\xbb\xbf{}"));
    QTest::newRow("much data") << PreferenceValue(QByteArray(1 << 20, 'x'));
}

void JsonPreferencesTest::keepsEveryValueWithItsType() {
    QFETCH(const PreferenceValue, value);
    JsonPreferences(m_path).setValue(key, value);
    const JsonPreferences preferences(m_path);
    QVERIFY(preferences.value(key) == value);
    QVERIFY(QJsonDocument::fromJson(read(m_path)).isObject());
}

void JsonPreferencesTest::readsOnlyTheStoredType() {
    write(m_path, R"({"whole": 1, "text": "true", "yes": true, "data": {"data": "{}", "encoding": )"
                  R"("utf-8"}})");
    const JsonPreferences preferences(m_path);
    QCOMPARE(preferences.boolean(QStringLiteral("whole")), std::nullopt);
    QCOMPARE(preferences.boolean(QStringLiteral("text")), std::nullopt);
    QCOMPARE(preferences.number(QStringLiteral("yes")), std::nullopt);
    QCOMPARE(preferences.string(QStringLiteral("data")), std::nullopt);
    QCOMPARE(preferences.data(QStringLiteral("text")), std::nullopt);
    QCOMPARE(preferences.wholeNumber(QStringLiteral("whole")), 1);
    QCOMPARE(preferences.data(QStringLiteral("data")), QByteArray("{}"));
    QCOMPARE(preferences.value(QStringLiteral("absent")), std::nullopt);
}

void JsonPreferencesTest::keepsTheFileAndItsFolderPrivate() {
    JsonPreferences(m_path).setBoolean(key, true);
    struct stat status = {};
    for (const QString &path : {m_path, m_backup}) {
        QCOMPARE(::stat(qPrintable(path), &status), 0);
        QCOMPARE(status.st_mode & 0777U, 0600U);
    }
    QCOMPARE(::stat(qPrintable(QFileInfo(m_path).path()), &status), 0);
    QCOMPARE(status.st_mode & 0777U, 0700U);
}

void JsonPreferencesTest::keepsForeignValuesInTheFile() {
    const QByteArray foreign =
        R"({"list": [1, {"a": null}], "none": null, "large": 9223372036854775807, "object": )"
        R"({"data": "%", "encoding": "base64"}, "tag": {"data": "x", "encoding": "rot13"}})";
    write(m_path, foreign);
    JsonPreferences preferences(m_path);
    const QJsonObject before = QJsonDocument::fromJson(foreign).object();
    for (const QString &name : before.keys()) {
        QCOMPARE(preferences.value(name).has_value(), name == QStringLiteral("large"));
    }
    preferences.setBoolean(key, true);
    QJsonObject after = QJsonDocument::fromJson(read(m_path)).object();
    QCOMPARE(after.take(key), QJsonValue(true));
    QCOMPARE(after, before);
    QVERIFY(read(m_path).contains("9223372036854775807"));
}

void JsonPreferencesTest::announcesEverySetAndRemoval() {
    JsonPreferences preferences(m_path);
    QStringList announced;
    connect(&preferences, &Preferences::changed, this, [&](const QString &name) {
        // The value is there, and on the disk, when it is announced.
        const JsonPreferences again(m_path);
        QCOMPARE(again.value(name), preferences.value(name));
        announced.append(name);
    });
    preferences.setNumber(key, 1);
    const QByteArray bytes = read(m_path);
    preferences.setNumber(key, 1);
    preferences.removeValue(other);
    QCOMPARE(announced, QStringList({key, key}));
    QCOMPARE(read(m_path), bytes);
    preferences.removeValue(key);
    QCOMPARE(announced, QStringList({key, key, key}));
    QCOMPARE(preferences.value(key), std::nullopt);
    // One type is not another, even where JSON values compare alike.
    preferences.setBoolean(key, false);
    preferences.setNumber(key, 0);
    QCOMPARE(JsonPreferences(m_path).number(key), 0.0);
}

void JsonPreferencesTest::doesNotStoreANumberThatIsNotFinite() {
    JsonPreferences preferences(m_path);
    preferences.setNumber(key, 0.5);
    const QSignalSpy changed(&preferences, &Preferences::changed);
    preferences.setNumber(key, std::numeric_limits<double>::quiet_NaN());
    preferences.setNumber(key, std::numeric_limits<double>::infinity());
    QCOMPARE(changed.count(), 2);
    QCOMPARE(preferences.number(key), 0.5);
    QCOMPARE(JsonPreferences(m_path).number(key), 0.5);
}

void JsonPreferencesTest::setsADamagedFileAside_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("a torn document") << QByteArray("{\"key\": tr");
    QTest::newRow("an empty file") << QByteArray();
    QTest::newRow("zeros") << QByteArray(4096, '\0');
    QTest::newRow("another kind of document") << QByteArray("[1, 2]");
    QTest::newRow("no document") << QByteArray("key=value\n");
    QTest::newRow("endless nesting") << QByteArray(100000, '[');
}

void JsonPreferencesTest::setsADamagedFileAside() {
    QFETCH(const QByteArray, bytes);
    write(m_path, bytes);
    const StandardError standardError;
    JsonPreferences preferences(m_path);
    const QByteArray told = standardError.takeText();
    QVERIFY(told.startsWith("perchly: cannot read the preferences"));
    QVERIFY(!told.contains("cannot write"));
    QCOMPARE(preferences.value(key), std::nullopt);
    preferences.setBoolean(key, true);
    QCOMPARE(JsonPreferences(m_path).boolean(key), true);
    QCOMPARE(read(m_path + QStringLiteral(".kept-1")), bytes);
}

void JsonPreferencesTest::neverReplacesWhatItHasSetAside() {
    for (int number = 1; number <= 3; ++number) {
        write(m_path, "torn " + QByteArray::number(number));
        QFile::remove(m_backup);
        const StandardError quiet;
        const JsonPreferences preferences(m_path);
    }
    QVERIFY(QFile::remove(m_path));
    QVERIFY(QDir().mkpath(m_path + QStringLiteral("/a folder in its place")));
    {
        const StandardError quiet;
        JsonPreferences(m_path).setBoolean(key, true);
    }
    for (int number = 1; number <= 3; ++number) {
        QCOMPARE(read(QStringLiteral("%1.kept-%2").arg(m_path).arg(number)),
                 "torn " + QByteArray::number(number));
    }
    QVERIFY(QFileInfo::exists(m_path + QStringLiteral(".kept-4/a folder in its place")));
    QCOMPARE(JsonPreferences(m_path).boolean(key), true);
}

void JsonPreferencesTest::usesTheBackupWhenTheFileIsTorn() {
    {
        JsonPreferences preferences(m_path);
        for (int number = 0; number < 50; ++number) {
            preferences.setNumber(key, number);
        }
    } // the last generation is on the disk now
    const QByteArray whole = read(m_path);
    QCOMPARE(read(m_backup), whole);
    write(m_path, whole.first(whole.size() / 2));
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

void JsonPreferencesTest::startsWithTheDefaultsWhenTheFileWasDeleted() {
    JsonPreferences(m_path).setString(key, QStringLiteral("precious"));
    QVERIFY(QFile::remove(m_path));
    const StandardError standardError;
    JsonPreferences preferences(m_path);
    QCOMPARE(preferences.value(key), std::nullopt);
    preferences.setBoolean(other, true);
    QVERIFY(read(m_backup + QStringLiteral(".kept-1")).contains("precious"));
    QVERIFY(standardError.takeText().contains("preferences.json.bak.kept-1"));
}

void JsonPreferencesTest::triesAFailedWriteAgainWithAllValues_data() {
    QTest::addColumn<QString>("obstacle");
    QTest::newRow("the disk is full") << QStringLiteral("disk");
    QTest::newRow("the folder is read-only") << QStringLiteral("folder");
}

void JsonPreferencesTest::triesAFailedWriteAgainWithAllValues() {
    QFETCH(const QString, obstacle);
    JsonPreferences(m_path).setString(key, QStringLiteral("before"));
    const QByteArray before = read(m_path);
    const QString folder = QFileInfo(m_path).path();
    JsonPreferences preferences(m_path);
    {
        const StandardError standardError;
        std::optional<FullDisk> fullDisk;
        std::optional<Unprivileged> unprivileged;
        if (obstacle == QStringLiteral("disk")) {
            fullDisk.emplace();
        } else {
            ::chmod(qPrintable(m_folder->path()), 0711);
            ::chmod(qPrintable(folder), 0555);
            unprivileged.emplace();
        }
        preferences.setString(key, QStringLiteral("after"));
        preferences.setNumber(other, 1);
        QCOMPARE(standardError.takeText().count("cannot write the preferences"), 1);
    }
    ::chmod(qPrintable(folder), 0700);
    QCOMPARE(read(m_path), before);
    QCOMPARE(preferences.string(key), QStringLiteral("after"));
    preferences.setNumber(other, 1); // the same value as in memory, but not as on the disk
    const JsonPreferences again(m_path);
    QCOMPARE(again.string(key), QStringLiteral("after"));
    QCOMPARE(again.number(other), 1.0);
    QVERIFY(names().filter(QStringLiteral(".tmp-")).isEmpty());
}

void JsonPreferencesTest::neverReplacesADamagedFileThatCannotBeMoved() {
    write(m_path, "precious but torn");
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
    QCOMPARE(read(m_path), QByteArray("precious but torn"));
    preferences.setBoolean(other, true);
    QCOMPARE(read(m_path + QStringLiteral(".kept-1")), QByteArray("precious but torn"));
    QCOMPARE(JsonPreferences(m_path).boolean(key), true);
}

void JsonPreferencesTest::writesThroughASymbolicLink_data() {
    QTest::addColumn<QByteArray>("target");
    QTest::newRow("to a file") << QByteArray("{\"other\": 1}");
    QTest::newRow("to a file that is not there yet") << QByteArray();
    QTest::newRow("to a torn file") << QByteArray("{");
}

void JsonPreferencesTest::writesThroughASymbolicLink() {
    QFETCH(const QByteArray, target);
    const QString real = m_folder->filePath(QStringLiteral("dotfiles/perchly.json"));
    QDir().mkpath(QFileInfo(m_path).path());
    QVERIFY(QDir().mkpath(QFileInfo(real).path()));
    if (!target.isEmpty()) {
        write(real, target);
    }
    QVERIFY(QFile::link(QStringLiteral("../dotfiles/perchly.json"), m_path));
    const StandardError quiet;
    JsonPreferences(m_path).setBoolean(key, true);
    QVERIFY(QFileInfo(m_path).isSymLink());
    const QJsonObject document = QJsonDocument::fromJson(read(real)).object();
    QCOMPARE(document.value(key), QJsonValue(true));
    QCOMPARE(document.contains(other), target.size() > 1);
}

void JsonPreferencesTest::sweepsLeftoversOnly() {
    write(m_path, "{}");
    write(m_path + QStringLiteral(".tmp-a1B2c3"), "{");
    write(m_backup + QStringLiteral(".tmp-a1B2c3"), "{");
    write(m_path + QStringLiteral(".tmp-of-the-person"), "mine");
    const JsonPreferences preferences(m_path);
    QCOMPARE(names(), QStringList({QStringLiteral("preferences.json"),
                                   QStringLiteral("preferences.json.tmp-of-the-person")}));
}

QTEST_GUILESS_MAIN(JsonPreferencesTest)
#include "JsonPreferencesTest.moc"
