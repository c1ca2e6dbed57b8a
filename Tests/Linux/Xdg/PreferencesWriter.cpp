#include "JsonPreferences.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

/// Sets three preferences to a rising number, again and again, and prints the number once all three
/// sets have returned, until it is killed.
int main(int argc, char **argv) {
    if (argc != 3) {
        return 64;
    }
    perchly::JsonPreferences preferences(QString::fromLocal8Bit(argv[1]));
    const QByteArray padding(20000, 'x');
    for (int number = std::atoi(argv[2]);; ++number) {
        preferences.setNumber(QStringLiteral("number"), number);
        preferences.setString(QStringLiteral("string"), QString::number(number));
        preferences.setData(QStringLiteral("data"), QByteArray::number(number) + ' ' + padding);
        const std::string line = std::to_string(number) + "\n";
        if (::write(STDOUT_FILENO, line.data(), line.size()) < 0) {
            return 1;
        }
    }
}
