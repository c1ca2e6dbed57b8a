#include "RequestReader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <iostream>
#include <string>

namespace perchly {

void readRequests(const std::function<void(const PreviewRequest &)> &handle) {
    for (std::string line; std::getline(std::cin, line);) {
        const QJsonObject object =
            QJsonDocument::fromJson(QByteArray::fromStdString(line)).object();
        PreviewRequest request{.items = {},
                               .index = object.value(QStringLiteral("index")).toInteger(),
                               .toggle = object.value(QStringLiteral("toggle")).toBool(),
                               .screen = object.value(QStringLiteral("screen")).toString()};
        const QJsonArray items = object.value(QStringLiteral("items")).toArray();
        for (const QJsonValue &item : items) {
            request.items.append(QUrl(item.toString()));
        }
        if (request.index >= 0 && request.index < request.items.size()) {
            handle(request);
        }
    }
}

} // namespace perchly
