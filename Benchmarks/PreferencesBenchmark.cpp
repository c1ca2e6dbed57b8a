#include "JsonPreferences.h"

#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

using namespace perchly;

/// How long the main thread waits for one set, with a shelf library of ordinary size in the file
/// and the background job at work. An argument names the folder (and so the disk) to write in.
int main(int argc, char **argv) {
    constexpr size_t sets = 1000;
    const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath();
    const QTemporaryDir temporary(folder + QStringLiteral("/perchly-benchmark-XXXXXX"));
    JsonPreferences preferences(temporary.filePath(QStringLiteral("preferences.json")));
    preferences.setData(QStringLiteral("library"), QByteArray(12000, 'x'));
    std::vector<double> times;
    for (size_t number = 0; number < sets; ++number) {
        const auto start = std::chrono::steady_clock::now();
        preferences.setNumber(QStringLiteral("number"), double(number));
        const std::chrono::duration<double, std::micro> taken =
            std::chrono::steady_clock::now() - start;
        times.push_back(taken.count());
    }
    std::ranges::sort(times);
    std::printf("preferences: one set, median %.0f us, p99 %.0f us, worst %.0f us\n",
                times[sets / 2], times[sets * 99 / 100], times.back());
}
