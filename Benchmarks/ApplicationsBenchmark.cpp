// Measures how long finding and searching this machine's applications takes. No arguments.

#include "ApplicationCatalog.h"
#include "DesktopCatalog.h"
#include "InstalledApplications.h"
#include "NullHosts.h"
#include "ShelfLibrary.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>

using namespace perchly;

namespace {

/// As large as a real entry: names and comments in many languages, and some actions.
QByteArray entryText(int number) {
    const QByteArray name = "Application " + QByteArray::number(number);
    QByteArray text = "[Desktop Entry]\nVersion=1.0\nType=Application\nName=" + name + "\n";
    for (char first = 'a'; first <= 'j'; ++first) {
        for (char second : {'a', 'e', 'k', 'r', 't'}) {
            const QByteArray language = QByteArray(1, first) + second;
            text += "Name[" + language + "]=" + name + " (" + language + ")\nComment[" + language +
                    "]=What this application is for, in the language " + language + "\n";
        }
    }
    text += "Exec=true %U\nIcon=application\nTerminal=false\nCategories=Utility;\n"
            "MimeType=text/plain;text/html;\nActions=one;two;\n";
    for (const char *action : {"one", "two"}) {
        text += QByteArray("\n[Desktop Action ") + action + "]\nName=" + action + "\nExec=true\n";
    }
    return text;
}

void writeEntries(const QString &folder, int count) {
    QDir().mkpath(folder);
    for (int number = 0; number < count; ++number) {
        QFile file(folder + QStringLiteral("/org.example.Application%1.desktop").arg(number));
        if (file.open(QIODevice::WriteOnly)) {
            file.write(entryText(number));
        }
    }
}

struct Times {
    double median;
    double p99;
};

Times measure(int rounds, const std::function<void(int)> &work) {
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        work(round);
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::ranges::sort(times);
    return {times[times.size() / 2], times[(times.size() * 99 - 1) / 100]};
}

void print(const char *what, const Times &times) {
    std::printf("  %-52s median %9.3f ms   p99 %9.3f ms\n", what, times.median, times.p99);
}

/// Answers every call at once.
class FixedCatalog : public ApplicationCatalog {
public:
    explicit FixedCatalog(const QList<FoundApplication> &applications)
        : m_applications(applications) {}

    void find(Completion completion) override { completion(m_applications); }
    void describe(const QStringList &, Completion) override {}
    QString startFolder() const override { return {}; }

private:
    const QList<FoundApplication> m_applications;
};

void measureSearch(const QList<FoundApplication> &applications) {
    const Hosts hosts = nullHosts();
    FixedCatalog catalog(applications);
    ShelfLibrary library(*hosts.preferences, catalog, *hosts.openPanel);
    InstalledApplications model;
    model.setProperty("library", QVariant::fromValue(&library));
    print("a scan's result into the rows", measure(5, [&](int) { library.refresh(); }));
    // Types a word and deletes it again, with as many rows as a window shows.
    const QString word = QStringLiteral("cation 99");
    print("a key in the search", measure(400, [&](int key) {
              const auto length = std::abs(key % (2 * int(word.size())) - int(word.size()));
              model.setProperty("search", word.left(length));
              for (int row = 0; row < std::min(12, model.count()); ++row) {
                  (void)model.field(row, "item");
                  (void)model.field(row, "added");
              }
          }));
}

void run(int count) {
    QTemporaryDir data;
    qputenv("XDG_DATA_HOME", QFile::encodeName(data.path()));
    qputenv("XDG_DATA_DIRS", "/nowhere");
    writeEntries(data.filePath(QStringLiteral("applications")), count);
    std::printf("%d desktop entries of %lld bytes\n", count, qlonglong(entryText(0).size()));

    const int rounds = count > 1000 ? 7 : 50;
    QList<FoundApplication> applications;
    DesktopCatalog catalog;
    print("finding the applications", measure(rounds, [&](int) {
              QEventLoop loop;
              catalog.find([&](const QList<FoundApplication> &found) {
                  applications = found;
                  loop.quit();
              });
              loop.exec();
          }));
    if (applications.size() != count) {
        std::printf("  found %lld of them\n", qlonglong(applications.size()));
    }
    measureSearch(applications);
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    if (argc > 1) {
        run(application.arguments().at(1).toInt());
        return 0;
    }
    // Each in its own process, as GIO reads its folders only once.
    for (const char *count : {"300", "10000"}) {
        QProcess::execute(application.applicationFilePath(), {QString::fromLatin1(count)});
    }
    return 0;
}
