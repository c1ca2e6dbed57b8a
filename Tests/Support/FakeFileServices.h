#pragma once

#include "FileServices.h"

#include <QStringList>

namespace perchly {

class FakeFileServices : public FileServices {
public:
    void reveal(const QUrl &file, Completion completion) override {
        asked.append(QStringLiteral("reveal ") + file.toString());
        completion(error);
    }
    void findShareTargets(const QUrl &, TargetsCompletion completion) override {
        completion({{QStringLiteral("viewer"), QStringLiteral("Viewer")}});
    }
    void share(const QUrl &url, const QString &targetId, Completion completion) override {
        asked.append(QStringLiteral("share %1 with %2").arg(url.toString(), targetId));
        completion(error);
    }

    QStringList asked;
    QString error; ///< what everything ends with
};

} // namespace perchly
