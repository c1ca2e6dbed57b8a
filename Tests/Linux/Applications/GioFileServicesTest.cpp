#include "GioFileServices.h"
#include "TestFiles.h"

#include <QDBusConnection>

using namespace perchly;

namespace {

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
    void initTestCase() {
        m_data = QDir(qEnvironmentVariable("XDG_DATA_HOME"));
        qputenv("XDG_DATA_DIRS", m_data.filePath(QStringLiteral("none")).toUtf8());
        const QString mark = m_data.filePath(QStringLiteral("marker"));
        const QByteArray script = "echo \"$(basename \"$0\") $*\" > '" + mark.toUtf8() + "'\n";
        for (const char *program : {"bin/open-it", "bin/xdg-email"}) {
            writeProgram(m_data.filePath(QString::fromLatin1(program)), script);
        }
        qputenv("PATH", m_data.filePath(QStringLiteral("bin")).toUtf8() + ':' + qgetenv("PATH"));
        const auto install = [](const QString &name, const QByteArray &lines) {
            installApplication(name,
                               "Exec=open-it %u\nName=" + name.toUtf8() + "\nMimeType=" + lines);
        };
        install(QStringLiteral("first"), "text/plain;inode/directory;");
        install(QStringLiteral("second"), "text/plain;x-scheme-handler/https;");
        install(QStringLiteral("hidden"), "text/plain;\nNoDisplay=true");
        writeFile(
            m_data.filePath(QStringLiteral("applications/mimeapps.list")),
            "[Default Applications]\ntext/plain=second.desktop\ninode/directory=first.desktop\n");
        writeFile(m_data.filePath(QStringLiteral("applications/mimeinfo.cache")),
                  "[MIME Cache]\ntext/plain=hidden.desktop;first.desktop;second.desktop;\n"
                  "inode/directory=first.desktop;\nx-scheme-handler/https=second.desktop;\n");
        const QString path = m_data.filePath(QStringLiteral("100% ä.txt"));
        writeFile(path, "text");
        m_file = QUrl::fromLocalFile(path);
    }

    void init() {
        m_errors.clear();
        QFile::remove(m_data.filePath(QStringLiteral("marker")));
    }

    void aFileIsShownByTheFileManager() {
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

    void withoutAFileManagerItsFolderIsOpened() {
        GioFileServices services;
        services.reveal(m_file, recorder());
        QTRY_COMPARE(m_errors, QStringList{QString()});
        QTRY_COMPARE(QString::fromUtf8(marker()), QStringLiteral("open-it ") + m_data.path());
    }

    void whatIsNotThereIsSaid() {
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

    void whatCanOpenItIsOffered_data() {
        QTest::addColumn<QUrl>("url");
        QTest::addColumn<QStringList>("names");
        const QString mail = QStringLiteral("E-mail");
        QTest::newRow("the default program of a file comes first")
            << m_file << QStringList({QStringLiteral("second"), QStringLiteral("first"), mail});
        QTest::newRow("programs for folders")
            << QUrl::fromLocalFile(m_data.path()) << QStringList({QStringLiteral("first"), mail});
        QTest::newRow("mail for what nothing opens")
            << QUrl(QStringLiteral("http://example.org/")) << QStringList(mail);
    }

    void whatCanOpenItIsOffered() {
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

    void sharingStartsTheProgram_data() {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QUrl>("url");
        QTest::addColumn<QString>("ran");
        const QUrl link(QStringLiteral("https://example.org/a%20b"));
        QTest::newRow("an application") << QStringLiteral("first.desktop") << link
                                        << QStringLiteral("open-it https://example.org/a%20b");
        QTest::newRow("a link by mail")
            << QStringLiteral("mail") << link
            << QStringLiteral("xdg-email --body https://example.org/a%20b");
        QTest::newRow("a file by mail")
            << QStringLiteral("mail") << m_file
            << QStringLiteral("xdg-email --attach ") + m_file.toLocalFile();
    }

    void sharingStartsTheProgram() {
        QFETCH(QString, target);
        QFETCH(QUrl, url);
        QFETCH(QString, ran);
        GioFileServices services;
        services.share(url, target, recorder());
        QTRY_COMPARE(m_errors, QStringList{QString()});
        QTRY_COMPARE(QString::fromUtf8(marker()), ran);
    }

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

QTEST_GUILESS_MAIN(GioFileServicesTest)

#include "GioFileServicesTest.moc"
