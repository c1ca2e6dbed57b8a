#pragma once

#include "ApplicationCatalog.h"

#include <utility>
#include <vector>

namespace perchly {

/// Applications that are found when the test says so.
class FakeApplicationCatalog : public ApplicationCatalog {
public:
    void find(Completion completion) override { searches.push_back(std::move(completion)); }
    void describe(const QStringList &paths, Completion completion) override {
        QList<FoundApplication> applications;
        for (const QString &path : paths) {
            applications.append({path, QStringLiteral("Name of ") + path});
        }
        QMetaObject::invokeMethod(
            this, [completion = std::move(completion), applications] { completion(applications); },
            Qt::QueuedConnection);
    }
    QString startFolder() const override { return QStringLiteral("/usr/share/applications"); }

    /// Ends one of the searches under way, the oldest unless told otherwise.
    void finish(const QList<FoundApplication> &applications, std::size_t search = 0) {
        const Completion completion = std::move(searches.at(search));
        searches.erase(searches.begin() + std::ptrdiff_t(search));
        completion(applications);
    }

    std::vector<Completion> searches; ///< under way
};

} // namespace perchly
