#include "GioFileServices.h"
#include "TestFiles.h"

#include <QDBusConnection>
#include <QDir>
#include <QFile>
#include <QTest>

using namespace perchly;

namespace {

void write(const QString &path, const QByteArray &text) {
    writeFile(path, text);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

class FileManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")
public:
    QStringList shown;

public Q_SLOTS:
    void ShowItems(const QStringList &uris, const QString &) { shown.append(uris); }
};

} // namespace

class GioFileServicesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void aFileIsShownByTheFileManager();
    void withoutAFileManagerItsFolderIsOpened();
    void whatIsNotThereIsSaid();
    void whatCanOpenItIsOffered_data();
    void whatCanOpenItIsOffered();
    void sharingStartsTheProgram_data();
    void sharingStartsTheProgram();

private:
    [[nodiscard]] QByteArray marker() const {
        return readFile(m_data.filePath(QStringLiteral("marker"))).trimmed();
    }
    FileServices::Completion recorder() {
        return [this](const QString &error) { m_errors.append(error); };
    }

    QDir m_data;
    QUrl m_file;
    QStringList m_errors;
};

void GioFileServicesTest::initTestCase() {
    m_data = QDir(qEnvironmentVariable("XDG_DATA_HOME"));
    qputenv("XDG_DATA_DIRS", m_data.filePath(QStringLiteral("none")).toUtf8());
    const QString mark = m_data.filePath(QStringLiteral("marker"));
    const QByteArray script =
        "#!/bin/sh\necho \"$(basename \"$0\") $*\" > '" + mark.toUtf8() + "'\n";
    write(m_data.filePath(QStringLiteral("bin/open-it")), script);
    write(m_data.filePath(QStringLiteral("bin/xdg-email")), script);
    qputenv("PATH", m_data.filePath(QStringLiteral("bin")).toUtf8() + ':' + qgetenv("PATH"));
    const auto entry = [this](const char *id, const QByteArray &lines) {
        write(m_data.filePath(QStringLiteral("applications/%1.desktop").arg(QLatin1StringView(id))),
              "[Desktop Entry]\nType=Application\nExec=open-it %u\n" + lines + "\n");
    };
    entry("first", "Name=First\nMimeType=text/plain;inode/directory;");
    entry("second", "Name=Second\nMimeType=text/plain;x-scheme-handler/https;");
    entry("hidden", "Name=Hidden\nMimeType=text/plain;\nNoDisplay=true");
    write(m_data.filePath(QStringLiteral("applications/mimeapps.list")),
          "[Default Applications]\ntext/plain=second.desktop\ninode/directory=first.desktop\n");
    write(m_data.filePath(QStringLiteral("applications/mimeinfo.cache")),
          "[MIME Cache]\ntext/plain=hidden.desktop;first.desktop;second.desktop;\n"
          "inode/directory=first.desktop;\nx-scheme-handler/https=second.desktop;\n");
    const QString path = m_data.filePath(QStringLiteral("100% ä.txt"));
    write(path, "text");
    m_file = QUrl::fromLocalFile(path);
}

void GioFileServicesTest::init() {
    m_errors.clear();
    QFile::remove(m_data.filePath(QStringLiteral("marker")));
}

void GioFileServicesTest::aFileIsShownByTheFileManager() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    FileManager manager;
    QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), &manager,
                               QDBusConnection::ExportAllSlots));
    QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.FileManager1")));
    GioFileServices services;
    services.reveal(m_file, recorder());
    QCOMPARE(m_errors, QStringList());
    QTRY_COMPARE(m_errors, QStringList{QString()});
    QCOMPARE(manager.shown, QStringList(m_file.toString(QUrl::FullyEncoded)));
    QVERIFY(bus.unregisterService(QStringLiteral("org.freedesktop.FileManager1")));
}

void GioFileServicesTest::withoutAFileManagerItsFolderIsOpened() {
    GioFileServices services;
    services.reveal(m_file, recorder());
    QTRY_COMPARE(m_errors, QStringList{QString()});
    QTRY_COMPARE(QString::fromUtf8(marker()), QStringLiteral("open-it ") + m_data.path());
}

void GioFileServicesTest::whatIsNotThereIsSaid() {
    GioFileServices services;
    const QUrl gone(QStringLiteral("file:///nowhere/at%20all"));
    const QString error = QStringLiteral("There is nothing at “/nowhere/at all”.");
    services.reveal(gone, recorder());
    QTRY_COMPARE(m_errors, QStringList(error));
    services.share(gone, QStringLiteral("first.desktop"), recorder());
    QTRY_COMPARE(m_errors, QStringList({error, error}));
    services.share(m_file, QStringLiteral("gone.desktop"), recorder());
    QTRY_COMPARE(m_errors.value(2), QStringLiteral("The application is no longer installed."));
}

void GioFileServicesTest::whatCanOpenItIsOffered_data() {
    QTest::addColumn<QUrl>("url");
    QTest::addColumn<QStringList>("names");
    const QString mail = QStringLiteral("E-mail");
    QTest::newRow("the default program of a file comes first")
        << m_file << QStringList({QStringLiteral("Second"), QStringLiteral("First"), mail});
    QTest::newRow("programs for folders")
        << QUrl::fromLocalFile(m_data.path()) << QStringList({QStringLiteral("First"), mail});
    QTest::newRow("programs for links") << QUrl(QStringLiteral("https://example.org/"))
                                        << QStringList({QStringLiteral("Second"), mail});
    QTest::newRow("mail for what nothing opens")
        << QUrl(QStringLiteral("http://example.org/")) << QStringList(mail);
}

void GioFileServicesTest::whatCanOpenItIsOffered() {
    QFETCH(QUrl, url);
    GioFileServices services;
    std::optional<QStringList> names;
    services.findShareTargets(url, [&names](const QList<FileServices::ShareTarget> &targets) {
        names.emplace();
        for (const FileServices::ShareTarget &target : targets) {
            names->append(target.name);
        }
    });
    QTRY_VERIFY(names.has_value());
    QTEST(*names, "names");
}

void GioFileServicesTest::sharingStartsTheProgram_data() {
    QTest::addColumn<QString>("target");
    QTest::addColumn<QUrl>("url");
    QTest::addColumn<QString>("ran");
    const QUrl link(QStringLiteral("https://example.org/a%20b"));
    QTest::newRow("an application") << QStringLiteral("first.desktop") << link
                                    << QStringLiteral("open-it https://example.org/a%20b");
    QTest::newRow("a link by mail") << QStringLiteral("mail") << link
                                    << QStringLiteral("xdg-email --body https://example.org/a%20b");
    QTest::newRow("a file by mail") << QStringLiteral("mail") << m_file
                                    << QStringLiteral("xdg-email --attach ") + m_file.toLocalFile();
}

void GioFileServicesTest::sharingStartsTheProgram() {
    QFETCH(QString, target);
    QFETCH(QUrl, url);
    QFETCH(QString, ran);
    GioFileServices services;
    services.share(url, target, recorder());
    QTRY_COMPARE(m_errors, QStringList{QString()});
    QTRY_COMPARE(QString::fromUtf8(marker()), ran);
}

QTEST_GUILESS_MAIN(GioFileServicesTest)

#include "GioFileServicesTest.moc"
