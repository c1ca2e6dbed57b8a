#include "Fuzz.h"
#include "PreviewContent.h"
#include "RequestReader.h"

#include <iostream>

void perchly::fuzz(const QByteArray &input) {
    std::ofstream("file.txt") << input.toStdString();
    std::ifstream file("file.txt");
    std::cin.rdbuf(file.rdbuf());
    readRequests([](const PreviewRequest &request) { assert(!request.items.isEmpty()); });
    const QString text = loadPreview(QUrl(QStringLiteral("file:file.txt")), {64, 64}).text;
    for (const QString &line : text.split(u'\n')) {
        assert(line.size() <= 4001); // with the other half of the last character
    }
}
